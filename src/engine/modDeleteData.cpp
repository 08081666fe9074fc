#include "engine/modDeleteData.h"

#include <optional>

#include "engine/modInsertText.h"
#include "engine/targetConnection.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/output_file.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::string_view kNoTables =
    "No tables were selected in this scenario for delete SQL generation!\n\n"
    "Edit the scenario and drag and drop the desired tables to the right hand tree to select them.";

dao::Recordset OpenRules() {
    return RepositoryDatabase.OpenRecordset(
        "select * from [TSO Delete Table Rule] where [FK DBS Id] = ? and [FK TSO Id] = ? order by [Sort "
        "Order] asc",
        {CurrentDBSId, CurrentTSOId});
}

std::string StatementOf(const dao::Recordset& rule, TargetFormat format, const RunOptions& options) {
    const dao::Recordset table = RepositoryDatabase.OpenRecordset(
        "select * from [Table] where [FK DBS Id] = ? and [Id] = ?", {CurrentDBSId, rule.Long("FK TAB Id")});
    return DeleteStatement(format, QualifiedTableName(options, table.Text("Owner"), table.Text("Name")),
                           rule.Text("Where Clause"));
}

// Hands each rule's statement to `send` until that returns false.
template <typename Send>
void SendStatements(const OutputChoice& choice, RunProgress& progress, const Send& send) {
    RunOptions options;
    LoadRunOptions(options);
    dao::Recordset rules = OpenRules();
    if (rules.IsEOF())
        platform::ShowInformation(std::string(kNoTables));
    RowTicker ticker(progress);
    for (; !rules.IsEOF() && send(StatementOf(rules, choice.format, options)); rules.MoveNext())
        ticker.Row();
    ticker.Tell();
}

void DeleteInDatabase(const OutputChoice& choice, RunProgress& progress) {
    const std::unique_ptr<StatementTarget> target = SessionTarget();
    SendStatements(choice, progress, [&](const std::string& statement) {
        target->Execute(statement);
        return true;
    });
}

void WriteDeleteFile(const OutputChoice& choice, RunProgress& progress) {
    platform::OutputFile file(platform::PlatformPath(choice.textFile));
    CommentHeader(file.Buffer(), choice.format);
    SendStatements(choice, progress, [&](const std::string& statement) {
        file.Buffer().append(statement).append(kLineEnd);
        return InsertEndofStatement(file.Buffer(), choice.format);
    });
    file.Close();
}

}  // namespace

bool fDeleteSQL(const OutputChoice& choice, RunProgress& progress) {
    if (choice.toDatabase && !fTargetTakesData())
        return false;
    progress.Caption("Creating Delete SQL statements");
    RepositoryScope repository;
    bool done = true;
    try {
        fInitProgressDeleteSQL(progress);
        if (choice.toDatabase)
            DeleteInDatabase(choice, progress);
        else
            WriteDeleteFile(choice, progress);
    } catch (const platform::Error& error) {
        platform::ShowCritical("Error no: " + std::to_string(error.Number()) + " " + error.Description());
        done = false;
    }
    progress.Finish();
    return done;
}

std::string DeleteStatement(TargetFormat format, std::string_view qualifiedName,
                            std::string_view whereClause) {
    std::string statement;
    switch (format) {
        case TargetFormat::Delimited:
            break;
        case TargetFormat::Jet:
            statement.append("delete from [").append(qualifiedName).append("]");
            break;
        case TargetFormat::NonStopSqlWithDefine:
            statement.append("delete from =").append(qualifiedName);
            break;
        default:
            statement.append("delete from ").append(qualifiedName);
    }
    if (!whereClause.empty())
        statement.append(" ").append(whereClause);
    return statement;
}

}  // namespace vellumark
