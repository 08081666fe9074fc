#pragma once

#include <vector>

#include "engine/modColumnValue.h"
#include "engine/modRunProgress.h"
#include "engine/modWorkingDatabase.h"
#include "engine/rowMaker.h"
#include "engine/uniqueValues.h"

namespace vellumark {

inline constexpr const char* kNoTablesSelected =
    "No tables were selected in this scenario for data generation!\n\n"
    "Edit the scenario and drag and drop the desired tables to the right hand tree to select them.";

// The pass that fills the Working database with the marked columns of the marked rules.
class WorkingPass {
 public:
    WorkingPass(WorkingDatabase& database, const RunOptions& options, TargetFormat format,
                RunProgress& progress);

    // False when something stopped the pass, which has been shown.
    bool Run();

 private:
    bool MakeRule(TablePlan& table);

    WorkingDatabase& database_;
    RunProgress& progress_;
    Pacer pacer_;
    ValueContext context_;
};

// Makes the kept values of one Table rule's rows, unique where they must be.
class WorkingRowMaker {
 public:
    WorkingRowMaker(TablePlan& table, ValueContext& context);

    // Anything but Made has been shown, where there is something to show.
    RowOutcome Make(const RowPosition& row);
    void Store(WorkingWriter& writer);

 private:
    RowOutcome MakeValues(const RowPosition& row);
    RowOutcome MakeUnique(std::size_t column, const RowPosition& row);
    bool CompoundIsTaken();

    TablePlan& table_;
    ValueContext& context_;
    std::vector<TextBuffer> values_;
    std::vector<UniqueValues> taken_;  // by column
    UniqueValues takenCompounds_;
    std::string compound_;  // of the row under way
    bool hasCompound_ = false;
};

}  // namespace vellumark
