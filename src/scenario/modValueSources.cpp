#include "scenario/modValueSources.h"

#include <filesystem>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"
#include "scenario/modDependencies.h"
#include "schema/modConnectionRows.h"

namespace vellumark {

namespace {

constexpr int kNoEnd = 999999999;

bool fRefuse(const char* message) {
    platform::ShowExclamation(message);
    return false;
}

bool fBoundsOK(int start, int end) {
    if (end == 0 && start >= 0)
        return true;
    if (start > end)
        return fRefuse("Start number must be less than or equal to end number");
    return start > 0 || fRefuse("Please enter a start number greater than zero");
}

bool IsFile(char type) {
    return type == 'D' || type == 'P' || type == 'X';
}

bool fOriginOK(const ValueSourceDetails& details) {
    if (details.type == 'O' && (details.connection.table.empty() || details.connection.column.empty()))
        return fRefuse("Please enter the database connection details");
    if (details.type == 'V' && details.categoryId == 0)
        return fRefuse("Please select a Vellumark Category of Values");
    std::error_code ignored;
    if (IsFile(details.type) && !std::filesystem::is_regular_file(details.path, ignored))
        return fRefuse("Please select a valid input file name and path.");
    return true;
}

std::string_view CodesWithoutWarning(DataType type) {
    switch (type) {
        case DataType::Character:
            return "C";
        case DataType::Date:
            return "D";
        case DataType::Time:
            return "T";
        case DataType::TimeStamp:
            return "S";
        case DataType::Variant:
            return "CIR";
        case DataType::Blob:
        case DataType::Boolean:
            return "";
        default:
            return "IR";
    }
}

std::string_view CategoryTypeWord(char code) {
    switch (code) {
        case 'D':
            return "Date";
        case 'I':
            return "Integer";
        case 'R':
            return "Real";
        case 'T':
            return "Time";
        case 'S':
            return "Timestamp";
        default:
            return "Character";
    }
}

void WarnOfCategoryType(int categoryId, DataType columnType) {
    ValuesScope values;
    const std::string type =
        dao::ToText(ValuesDatabase.Lookup("select [Data Type] from [Category] where [Id] = ?", {categoryId}));
    const char code = type.empty() ? 'C' : type.front();
    if (CodesWithoutWarning(columnType).find(code) == std::string_view::npos)
        platform::ShowInformation("You have selected a Category of '" + std::string(CategoryTypeWord(code)) +
                                  "' datatype for a Column with '" + std::string(DataTypeName(columnType)) +
                                  "' datatype!");
}

dao::Recordset SourceRow(const ColumnRuleDetails& rule) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [Value Source] where [FK DBS Id] = ? and [FK TSO Id] = ? and [FK TTR Id] = ? and [FK "
        "TCR Id] = ?"
        " and [FK TAB Id] = ? and [FK COL Id] = ?",
        {CurrentDBSId, CurrentTSOId, rule.tableRuleId, rule.ruleId, rule.tableId, rule.columnId});
}

// The source's own connection: kept, made or removed as the kind of source needs.
int StoreConnection(const ValueSourceDetails& details, int existing) {
    if (details.type != 'O') {
        RepositoryDatabase.Execute("delete * from [Database Connection] where [Id] = ?", {existing});
        return 0;
    }
    ConnectionDetails connection = details.connection;
    connection.description = ValueDescription(connection);
    if (existing > 0) {
        UpdateConnection(existing, connection);
        return existing;
    }
    const int id = NextConnectionId();
    AddConnection(id, connection);
    return id;
}

void SetKeys(dao::Recordset& row, const ColumnRuleDetails& rule) {
    row.Set("FK TCR Id", rule.ruleId)
        .Set("FK TTR Id", rule.tableRuleId)
        .Set("FK COL Id", rule.columnId)
        .Set("FK TAB Id", rule.tableId)
        .Set("FK DBS Id", CurrentDBSId)
        .Set("FK TSO Id", CurrentTSOId);
}

void SetFields(dao::Recordset& row, const ValueSourceDetails& details) {
    const auto code = [](char letter) { return std::string(1, letter); };
    row.Set("Type", code(details.type))
        .Set("FK CAT Id", details.type == 'V' ? details.categoryId : 0)
        .Set("FK CNV Id", details.conversionId)
        .Set("Name and Path", IsFile(details.type) ? details.path : "")
        .Set("Sheet", details.sheet)
        .Set("Start from Column", details.startColumn)
        .Set("End at Column", details.endColumn)
        .Set("Column end Cell", details.columnTerminator)
        .Set("Start from Row", details.startRow)
        .Set("End at Row", details.endRow)
        .Set("Row end Cell", details.rowTerminator)
        .Set("Delimited Field Number", details.fieldNumber)
        .Set("Delimiter", details.delimiter)
        .Set("File Read Interval", details.interval)
        .Set("Read File Order", code(details.order))
        .Set("File Read Hold Frequency", details.hold)
        .Set("Code Input Value In Quotes", code(details.quotes))
        .Set("If End of File", code(details.order == 'R' ? 'L' : details.atEnd))
        .Set("Code Input Datetime Edit Pattern", details.inputPattern)
        .Set("Status", "");
}

void Store(const ValueSourceDetails& details, const ColumnRuleDetails& rule) {
    RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    dao::Recordset row = SourceRow(rule);
    const int connectionId = StoreConnection(details, row.IsEOF() ? 0 : row.Long("FK CON Id"));
    if (row.IsEOF()) {
        row.AddNew();
        SetKeys(row, rule);
    } else {
        row.Edit();
    }
    SetFields(row, details);
    row.Set("FK CON Id", connectionId);
    row.Update();
    RepositoryDatabase.Execute(
        "update [TSO Insert Column Rule] set [Code Generate Data Type] = 'V' where [FK DBS Id] = ? and [FK "
        "TSO Id] = ?"
        " and [FK TTR Id] = ? and [Id] = ?",
        {CurrentDBSId, CurrentTSOId, rule.tableRuleId, rule.ruleId});
    transaction.Commit();
}

}  // namespace

void SetSourceKind(ValueSourceDetails& details, char type) {
    details.type = type;
    details.startRow = 1;
    details.endRow = kNoEnd;
    details.startColumn = type == 'P' || type == 'X' ? 1 : 0;
    details.endColumn = type == 'X' ? kNoEnd : 0;
    details.fieldNumber = type == 'D' ? 1 : 0;
}

bool fValidateValueSource(const ValueSourceDetails& details, const ColumnRuleDetails& rule) {
    if (fColumnHasDependency(rule.scenarioId, rule.tableRuleId, rule.tableId, rule.columnId))
        return fRefuse(kResolvedByParent);
    if (rule.dataType == DataType::Boolean || rule.dataType == DataType::Blob)
        return fRefuse("A Boolean or Blob column takes no alternate data source.");
    if (!fBoundsOK(details.startColumn, details.endColumn) || !fBoundsOK(details.startRow, details.endRow))
        return false;
    if (details.interval < 0 || details.hold < 0)
        return fRefuse("Please enter a number equal to or greater than 0");
    if (!fOriginOK(details))
        return false;
    if (details.type == 'V')
        WarnOfCategoryType(details.categoryId, rule.dataType);
    return true;
}

bool fSaveValueSource(const ValueSourceDetails& details, const ColumnRuleDetails& rule) {
    try {
        if (!fValidateValueSource(details, rule))
            return false;
        Store(details, rule);
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("storing the alternate data source", error);
        return false;
    }
}

}  // namespace vellumark
