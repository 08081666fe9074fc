#include "engine/insertPass.h"

#include "engine/modInsertText.h"
#include "engine/rowSequence.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::string_view kNoTables =
    "No tables were selected in this scenario for data generation!\n\n"
    "Edit the scenario and drag and drop the desired tables to the right hand tree to select them.";

}  // namespace

InsertPass::InsertPass(const OutputChoice& choice, const RunOptions& options, RunProgress& progress,
                       StatementTarget* target)
    : choice_(choice),
      context_{&options, choice.format, &SessionRandomStream(), {}, {}, {}},
      progress_(progress),
      target_(target),
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
        platform::ShowExclamation("Error occurred trying to create the Output Text File.\n\n" + error.Line());
        return false;
    }
}

bool InsertPass::MakeRules() {
    dao::Recordset rules = RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ?"
        " and [Flag Use Generated Data] = True order by [Sort Order] asc",
        {CurrentDBSId, CurrentTSOId});
    if (rules.IsEOF())
        platform::ShowInformation(std::string(kNoTables));
    for (; !rules.IsEOF(); rules.MoveNext()) {
        TablePlan table = ReadTableRule(rules);
        if (table.quantity > 0 && !MakeRule(table))
            return false;
    }
    return true;
}

bool InsertPass::MakeRule(TablePlan& table) {
    ReadColumnRules(table, "[Flag Exclude] = False", context_);
    RowMaker maker(table, context_, Form());
    try {
        return MakeRows(maker, table) != RowOutcome::Failed;
    } catch (const platform::Error&) {
        sqlInHand_ = maker.SqlInHand();
        KeepFailedStatement();
        throw;
    }
}

RowOutcome InsertPass::MakeRows(RowMaker& maker, const TablePlan& table) {
    for (RowSequence rows(table); rows.Next();) {
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
