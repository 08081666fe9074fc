#include "engine/insertPass.h"

#include "engine/modInsertText.h"
#include "engine/rowSequence.h"
#include "engine/workingPass.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "repository/modVellumark.h"

namespace vellumark {

InsertPass::InsertPass(const OutputChoice& choice, const RunOptions& options, RunProgress& progress,
                       StatementTarget* target, const WorkingDatabase* working)
    : choice_(choice),
      context_{&options, choice.format, &SessionRandomStream(), nullptr, {}, {}, {}},
      progress_(progress),
      target_(target),
      working_(working),
      ticker_(progress) {}

bool InsertPass::Run() {
    progress_.Caption("Generating data");
    if (!OpenOutput())
        return false;
    const bool done = MakeRules();
    sink_->Finish();
    ticker_.Tell();
    return done;
}

void InsertPass::Abandon() {
    if (!sink_)
        return;
    try {
        sink_->Abandon();
    } catch (const platform::Error&) {
        KeepFailedStatement();
        throw;
    }
}

bool InsertPass::OpenOutput() {
    if (choice_.toDatabase) {
        sink_ = std::make_unique<TargetSink>(*target_);
        return true;
    }
    try {
        auto file = std::make_unique<FileSink>(platform::PlatformPath(choice_.textFile), choice_.format,
                                               context_.options->commitPoint);
        CommentHeader(file->File().Buffer(), choice_.format);
        CopySQLHeaderFile(file->File(), choice_.format, *context_.options);
        sink_ = std::move(file);
        return true;
    } catch (const platform::Error& error) {
        return platform::Refuse("Error occurred trying to create the Output Text File.\n\n" + error.Line());
    }
}

bool InsertPass::MakeRules() {
    dao::Recordset rules = RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ?"
        " and [Flag Use Generated Data] = True order by [Sort Order] asc",
        {CurrentDBSId, CurrentTSOId});
    if (rules.IsEOF())
        platform::ShowInformation(kNoTablesSelected);
    for (; !rules.IsEOF(); rules.MoveNext()) {
        TablePlan table = ReadTableRule(rules);
        if (table.quantity > 0 && !MakeRule(table))
            return false;
    }
    return true;
}

bool InsertPass::MakeRule(TablePlan& table) {
    ReadColumnRules(table, "[Flag Exclude] = False", context_,
                    working_ == nullptr ? MarkedColumns::Made : MarkedColumns::Stored);
    std::optional<WorkingReader> stored = OpenStored(table);
    context_.stored = stored ? &*stored : nullptr;
    RowMaker maker(table, context_, Form());
    try {
        return MakeRows(maker, table, stored ? &*stored : nullptr) != RowOutcome::Failed;
    } catch (const platform::Error&) {
        sqlInHand_ = maker.SqlInHand();
        KeepFailedStatement();
        throw;
    }
}

// One cursor over the stored columns that the rule prints.
std::optional<WorkingReader> InsertPass::OpenStored(TablePlan& table) {
    std::vector<std::string> names;
    for (ColumnPlan& column : table.columns) {
        if (column.kind != ValueKind::Stored)
            continue;
        column.storedPlace = names.size();
        names.push_back(column.name);
    }
    if (names.empty())
        return std::nullopt;
    return WorkingReader(*working_, table, names);
}

RowOutcome InsertPass::MakeRows(RowMaker& maker, const TablePlan& table, WorkingReader* stored) {
    // Data that ended in the first pass ends here too.
    const std::optional<WorkingRows> kept =
        working_ == nullptr ? std::nullopt : working_->RowsOf(table.ruleId);
    for (RowSequence rows(table); rows.Next();) {
        if (kept && rows.Row().rowCounter > kept->count)
            return RowOutcome::EndOfData;
        if (stored != nullptr)
            stored->Next();
        const RowOutcome outcome = maker.Make(rows.Row());
        if (outcome != RowOutcome::Made)
            return outcome;
        ticker_.Row();
        sink_->Write(maker.Row(), maker.MakesStatements());
    }
    return RowOutcome::Made;
}

void InsertPass::KeepFailedStatement() {
    const std::string failed = sink_->FailedStatement();
    if (!failed.empty())
        sqlInHand_ = failed;
}

RowForm InsertPass::Form() const {
    if (choice_.toDatabase)
        return RowForm::StatementForTarget;
    return choice_.format == TargetFormat::Delimited ? RowForm::DelimitedLine : RowForm::StatementInFile;
}

}  // namespace vellumark
