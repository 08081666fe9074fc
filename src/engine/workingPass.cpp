#include "engine/workingPass.h"

#include <algorithm>

#include "engine/rowSequence.h"
#include "platform/dialogs.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

RowOutcome Stopped() {
    return ReadEndMarker == "EOF" ? RowOutcome::EndOfData : RowOutcome::Failed;
}

}  // namespace

WorkingPass::WorkingPass(WorkingDatabase& database, const RunOptions& options, TargetFormat format,
                         RunProgress& progress)
    : database_(database), progress_(progress), context_{&options, format, &SessionRandomStream(),
                                                         nullptr,  {},     {},
                                                         {}} {}

bool WorkingPass::Run() {
    dao::Recordset rules = RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ? and [Status] = \"T\""
        " order by [Sort Order] asc",
        {CurrentDBSId, CurrentTSOId});
    if (rules.IsEOF())
        platform::ShowInformation(kNoTablesSelected);
    for (; !rules.IsEOF(); rules.MoveNext()) {
        TablePlan table = ReadTableRule(rules);
        if (!MakeRule(table))
            return false;
    }
    return true;
}

bool WorkingPass::MakeRule(TablePlan& table) {
    ReadColumnRules(table, "[Status] = \"T\"", context_, MarkedColumns::Made);
    if (table.columns.empty())
        return true;
    WorkingRowMaker maker(table, context_);
    WorkingWriter writer(database_, table);
    RowOutcome outcome = RowOutcome::Made;
    if (table.quantity > 0) {
        for (RowSequence rows(table); outcome == RowOutcome::Made && rows.Next();) {
            outcome = maker.Make(rows.Row());
            if (outcome == RowOutcome::Made)
                maker.Store(writer);
            if (pacer_.Due())
                progress_.Alive();
        }
    }
    writer.Finish();
    return outcome != RowOutcome::Failed;
}

WorkingRowMaker::WorkingRowMaker(TablePlan& table, ValueContext& context)
    : table_(table), context_(context), values_(table.columns.size()), taken_(table.columns.size()) {
    hasCompound_ = std::ranges::any_of(table.columns, &ColumnPlan::compoundUnique);
}

RowOutcome WorkingRowMaker::Make(const RowPosition& row) {
    for (int retries = 0;;) {
        const RowOutcome outcome = MakeValues(row);
        if (outcome != RowOutcome::Made || !hasCompound_ || !CompoundIsTaken())
            return outcome;
        if (++retries >= table_.retryCount) {
            platform::ShowExclamation(
                "Cannot generate another set of compound unique values for \n\nTable: " + table_.name + "\n");
            return RowOutcome::Failed;
        }
    }
}

RowOutcome WorkingRowMaker::MakeValues(const RowPosition& row) {
    for (std::size_t i = 0; i < values_.size(); ++i) {
        const RowOutcome outcome = MakeUnique(i, row);
        if (outcome != RowOutcome::Made)
            return outcome;
    }
    return RowOutcome::Made;
}

RowOutcome WorkingRowMaker::MakeUnique(std::size_t place, const RowPosition& row) {
    ColumnPlan& column = table_.columns[place];
    TextBuffer& value = values_[place];
    for (int retries = 0;;) {
        value.Clear();
        if (!fGenerateColumnValue(value, column, row, context_))
            return Stopped();
        if (!column.unique || !taken_[place].Contains(value.View()))
            return RowOutcome::Made;
        if (++retries >= table_.retryCount) {
            platform::ShowExclamation("Cannot generate another unique value for \n\nTable: " + table_.name +
                                      "\nColumn: " + column.name +
                                      "\n\nLast generated value: " + std::string(value.View()));
            return Stopped();
        }
    }
}

// The lengths keep ("a", "bc") apart from ("ab", "c").
bool WorkingRowMaker::CompoundIsTaken() {
    compound_.clear();
    for (std::size_t i = 0; i < values_.size(); ++i) {
        if (!table_.columns[i].compoundUnique)
            continue;
        const std::string_view value = values_[i].View();
        compound_.append(std::to_string(value.size())).append(":").append(value);
    }
    return takenCompounds_.Contains(compound_);
}

void WorkingRowMaker::Store(WorkingWriter& writer) {
    for (std::size_t i = 0; i < values_.size(); ++i) {
        writer.Set(i, values_[i].View());
        if (table_.columns[i].unique)
            taken_[i].Add(values_[i].View());
    }
    writer.AddRow();
    if (hasCompound_)
        takenCompounds_.Add(compound_);
}

}  // namespace vellumark
