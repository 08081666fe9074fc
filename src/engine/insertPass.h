#pragma once

#include <memory>
#include <optional>

#include "engine/modGenerateData.h"
#include "engine/modWorkingDatabase.h"
#include "engine/rowMaker.h"
#include "engine/rowSink.h"

namespace vellumark {

// The pass that makes every row and writes it.
class InsertPass {
 public:
    // The target is looked at only for a run into a database.
    // The Working database is absent in a run that does without.
    InsertPass(const OutputChoice& choice, const RunOptions& options, RunProgress& progress,
               StatementTarget* target, const WorkingDatabase* working);

    // False when something stopped the pass, which has been shown.
    bool Run();
    // Brings the output to its end behind an error that Run threw.
    void Abandon();

    // The statement that was under way when Run threw.
    const std::string& SqlInHand() const { return sqlInHand_; }

 private:
    bool OpenOutput();
    bool MakeRules();
    bool MakeRule(TablePlan& table);
    std::optional<WorkingReader> OpenStored(TablePlan& table);
    RowOutcome MakeRows(RowMaker& maker, const TablePlan& table, WorkingReader* stored);
    void KeepFailedStatement();
    RowForm Form() const;

    const OutputChoice& choice_;
    ValueContext context_;
    RunProgress& progress_;
    StatementTarget* target_;
    const WorkingDatabase* working_;
    RowTicker ticker_;
    std::unique_ptr<RowSink> sink_;
    std::string sqlInHand_;
};

}  // namespace vellumark
