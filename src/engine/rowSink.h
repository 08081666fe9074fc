#pragma once

#include <string>
#include <string_view>

#include "engine/modTargetFormat.h"
#include "engine/runOptions.h"
#include "engine/statementBatch.h"
#include "platform/output_file.h"

namespace vellumark {

// Takes the rows of a run. Every call may throw platform::Error.
class RowSink {
 public:
    virtual ~RowSink() = default;

    virtual void Write(std::string_view row, bool isStatement) = 0;
    // The regular end.
    virtual void Finish() = 0;
    // The end by an error: what was done stays.
    virtual void Abandon() = 0;
    // The statement that an error came from, where it is another than the one under way.
    virtual std::string FailedStatement() const { return {}; }
};

class FileSink : public RowSink {
 public:
    FileSink(const std::string& path, TargetFormat format, int commitPoint);

    platform::OutputFile& File() { return file_; }
    void Write(std::string_view row, bool isStatement) override;
    void Finish() override;
    void Abandon() override { file_.Close(); }

 private:
    bool fCommitDue();
    void AppendCommit();

    platform::OutputFile file_;
    TargetFormat format_;
    int commitPoint_;
    int statementCounter_ = 0;
};

class TargetSink : public RowSink {
 public:
    explicit TargetSink(StatementTarget& target) : batch_(target) {}

    void Write(std::string_view row, bool isStatement) override;
    void Finish() override { batch_.Finish(); }
    void Abandon() override { batch_.Finish(); }
    std::string FailedStatement() const override { return batch_.FailedStatement(); }

 private:
    StatementBatch batch_;
};

}  // namespace vellumark
