#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/columnPlan.h"
#include "engine/modColumnValue.h"

namespace vellumark {

// Where rows go decides what stands around their literals.
enum class RowForm { DelimitedLine, StatementInFile, StatementForTarget };

enum class RowOutcome { Made, EndOfData, Failed };

// Writes the rows of one Table rule as text. What is the same in every row is put together once.
class RowMaker {
 public:
    RowMaker(TablePlan& table, ValueContext& context, RowForm form);

    RowOutcome Make(const RowPosition& row);
    // The row made last.
    std::string_view Row() const { return row_.View(); }

    // A row of a rule without columns is no statement.
    bool MakesStatements() const { return form_ != RowForm::DelimitedLine && !table_.columns.empty(); }

    // The statement as far as it had come when Make threw an error.
    std::string SqlInHand() const;

 private:
    enum class StepKind { Generate, NumberOnly, Refuse };

    struct Step {
        std::string before;            // what stands before the value
        std::size_t literalStart = 0;  // where in it the value's own literal begins
        StepKind kind = StepKind::Generate;
        ColumnPlan* column = nullptr;
    };

    RowOutcome RunStep(const Step& step, const RowPosition& row);
    void MakeSteps();
    void AddStep(std::string& pending, std::string_view prefix, StepKind kind, ColumnPlan& column);
    void PlanColumn(std::string& pending, ColumnPlan& column);
    std::string ColumnList(const ColumnPlan* last) const;

    TablePlan& table_;
    ValueContext& context_;
    RowForm form_;
    std::string separator_;  // behind each literal
    std::string head_;
    std::vector<Step> steps_;
    std::string trailing_;  // behind the last step's value
    std::string tail_;
    bool keepsLoneSeparator_ = false;

    // Of the row under way.
    TextBuffer row_;
    std::size_t stepStart_ = 0;
    const Step* step_ = nullptr;
    bool isFirstRow_ = true;
};

}  // namespace vellumark
