#include "engine/rowSink.h"

#include "engine/modInsertText.h"

namespace vellumark {

FileSink::FileSink(const std::string& path, TargetFormat format, int commitPoint)
    : file_(path), format_(format), commitPoint_(commitPoint) {}

bool FileSink::fCommitDue() {
    ++statementCounter_;
    if (statementCounter_ < commitPoint_)
        return false;
    statementCounter_ = 0;
    return true;
}

void FileSink::AppendCommit() {
    std::string& out = file_.Buffer();
    out.append("COMMIT").append(kLineEnd);
    InsertEndofStatement(out, format_);
    out += kLineEnd;
}

void FileSink::Write(std::string_view row, bool isStatement) {
    file_.Buffer() += row;
    if (isStatement && commitPoint_ >= 1 && WordsOf(format_).writesCommit && fCommitDue())
        AppendCommit();
    file_.WriteWhenFull();
}

void FileSink::Finish() {
    if (statementCounter_ > 0)
        AppendCommit();
    file_.Close();
}

void TargetSink::Write(std::string_view row, bool isStatement) {
    if (isStatement)
        batch_.Execute(row);
}

}  // namespace vellumark
