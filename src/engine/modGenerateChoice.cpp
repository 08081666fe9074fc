#include "engine/modGenerateChoice.h"

#include "engine/modDeleteData.h"
#include "platform/dialogs.h"
#include "repository/modVellumark.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {

namespace {

bool IsInsert() {
    return CurrentTSOType == 'I';
}

}  // namespace

std::optional<RunSchema> ReadRunSchema() {
    try {
        const RepositoryScope repository;
        const dao::Recordset row = RepositoryDatabase.OpenRecordset(
            "select d.[Sheet Weaver Style], c.[Type] from [Database] d"
            " join [Database Connection] c on c.[Id] = d.[FK CON Id Target] where d.[Id] = ?",
            {CurrentDBSId});
        if (!row.IsEOF())
            return RunSchema{row.Text("Type"), row.Text("Sheet Weaver Style")};
        platform::ShowExclamation("Cannot open the Database identifier " + std::to_string(CurrentDBSId));
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the Database schema", error);
    }
    return std::nullopt;
}

std::string RunComment(const RunSchema& schema) {
    if (!IsInsert())
        return "Generate SQL statements to permanently DELETE data from the target database";
    if (CurrentDBSSource == 'T')
        return "Generate a delimited text file to load on to a Case Weaver Test Cases table";
    if (CurrentDBSSource != 'R')
        return "Generate SQL statements to INSERT data on the target database";
    return LoadsTable(schema) ? "Generate a delimited text file for a Sheet Weaver EAB"
                              : "Generate a delimited text file to load on to Sheet Weaver table";
}

bool OnlyDelimitedText() {
    return IsInsert() && (CurrentDBSSource == 'T' || CurrentDBSSource == 'R');
}

bool LoadsTable(const RunSchema& schema) {
    return CurrentDBSSource == 'T' || (CurrentDBSSource == 'R' && schema.sheetWeaverStyle == "GUI Report");
}

RunDefaults ReadRunDefaults() {
    try {
        const RepositoryScope repository;
        const dao::Recordset options = RepositoryDatabase.OpenRecordset("select * from [Options]");
        if (!options.IsEOF())
            return {options.Text("Target DataBase"), options.Text("Dir Output Text Files"),
                    options.Text("Dir SQL")};
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the options", error);
    }
    return {};
}

std::string DefaultTextFile(const RunDefaults& defaults) {
    return defaults.targetFormat == TargetFormatName(TargetFormat::Delimited)
               ? defaults.textFolder + "DataFile1.txt"
               : defaults.sqlFolder + "DataFile1.sql";
}

const std::string& OutputFolder(const RunDefaults& defaults, TargetFormat format) {
    return format == TargetFormat::Delimited ? defaults.textFolder : defaults.sqlFolder;
}

bool fDatabaseRunOK(bool mayConnect) {
    if (!IsInsert() &&
        !platform::AskYesNo("Do you really want to permanently delete data from the target database?"))
        return false;
    if (TargetConnectionState == 'C')
        return true;
    if (mayConnect && ConnectTarget())
        return true;
    return platform::Refuse(mayConnect ? "Cannot connect to target database."
                                       : "Please connect to the target database.");
}

bool fRunScenario(const OutputChoice& choice, RunProgress& progress) {
    if (IsInsert()) {
        if (!choice.toDatabase && choice.format == TargetFormat::Delimited)
            LastTextFile = choice.textFile;
        return TestDataGenerateAll(choice, progress);
    }
    if (fDeleteSQL(choice, progress))
        return true;
    platform::ShowCritical(choice.toDatabase ? "Cannot continue deleting data"
                                             : "Cannot continue writing Delete data text file");
    return false;
}

}  // namespace vellumark
