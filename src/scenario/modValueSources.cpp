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

// The field at fault, behind its message.
ValueSourceField Fault(ValueSourceField field, const char* message) {
    platform::ShowExclamation(message);
    return field;
}

ValueSourceField BoundsFault(int start, int end, ValueSourceField field) {
    if (end == 0 && start >= 0)
        return ValueSourceField::None;
    if (start > end)
        return Fault(field, "Start number must be less than or equal to end number");
    return start > 0 ? ValueSourceField::None : Fault(field, "Please enter a start number greater than zero");
}

bool IsFile(char type) {
    return type == 'D' || type == 'P' || type == 'X';
}

ValueSourceField NumberFault(const ValueSourceDetails& details) {
    const auto columns = BoundsFault(details.startColumn, details.endColumn, ValueSourceField::StartColumn);
    if (columns != ValueSourceField::None)
        return columns;
    const auto rows = BoundsFault(details.startRow, details.endRow, ValueSourceField::StartRow);
    if (rows != ValueSourceField::None)
        return rows;
    constexpr const char* kNegative = "Please enter a number equal to or greater than 0";
    if (details.interval < 0)
        return Fault(ValueSourceField::Interval, kNegative);
    return details.hold < 0 ? Fault(ValueSourceField::Hold, kNegative) : ValueSourceField::None;
}

ValueSourceField OriginFault(const ValueSourceDetails& details) {
    if (details.type == 'O' && (details.connection.table.empty() || details.connection.column.empty()))
        return Fault(ValueSourceField::Connection, "Please enter the database connection details");
    if (details.type == 'V' && details.categoryId == 0)
        return Fault(ValueSourceField::Category, "Please select a Vellumark Category of Values");
    std::error_code ignored;
    if (IsFile(details.type) && !std::filesystem::is_regular_file(details.path, ignored))
        return Fault(ValueSourceField::Path, "Please select a valid input file name and path.");
    return ValueSourceField::None;
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

dao::Recordset SourceRow(const ColumnRuleDetails& rule) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [Value Source] where [FK DBS Id] = ? and [FK TSO Id] = ? and [FK TTR Id] = ? and [FK "
        "TCR Id] = ?"
        " and [FK TAB Id] = ? and [FK COL Id] = ?",
        {CurrentDBSId, CurrentTSOId, rule.tableRuleId, rule.ruleId, rule.tableId, rule.columnId});
}

void DeleteConnectionRow(int id) {
    RepositoryDatabase.Execute("delete * from [Database Connection] where [Id] = ?", {id});
}

// The row of the source's own connection: kept, made or removed as the kind of source needs. `existing` is
// what the stored source has.
int StoreConnection(const ValueSourceDetails& details, int existing) {
    const int chosen = details.type == 'O' ? details.connectionId : 0;
    if (existing > 0 && existing != chosen && (details.type != 'O' || chosen > 0))
        DeleteConnectionRow(existing);
    if (details.type != 'O')
        return 0;
    ConnectionDetails connection = details.connection;
    connection.description = ValueDescription(connection);
    if (const int id = chosen > 0 ? chosen : existing; id > 0) {
        UpdateConnection(id, connection);
        return id;
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

char CodeIn(const dao::Recordset& row, std::string_view field, char fallback) {
    const std::string text = row.Text(field);
    return text.empty() ? fallback : text.front();
}

// A number that may be left blank.
int NumberIn(const dao::Recordset& row, std::string_view field, int blank) {
    return row.Text(field).empty() ? blank : row.Long(field);
}

ValueSourceDetails DetailsOf(const dao::Recordset& row) {
    ValueSourceDetails details;
    const char type = CodeIn(row, "Type", 'V');
    details.type = std::string_view("VDPXO").find(type) == std::string_view::npos ? 'V' : type;
    details.categoryId = row.Long("FK CAT Id");
    details.conversionId = row.Long("FK CNV Id");
    details.path = row.Text("Name and Path");
    details.sheet = row.Text("Sheet");
    details.startColumn = NumberIn(row, "Start from Column", 1);
    details.endColumn = NumberIn(row, "End at Column", kNoEnd);
    details.columnTerminator = row.Text("Column end Cell");
    details.startRow = NumberIn(row, "Start from Row", 1);
    details.endRow = NumberIn(row, "End at Row", kNoEnd);
    details.rowTerminator = row.Text("Row end Cell");
    details.fieldNumber = NumberIn(row, "Delimited Field Number", 1);
    details.delimiter = row.Text("Delimiter");
    details.interval = NumberIn(row, "File Read Interval", 1);
    details.order = CodeIn(row, "Read File Order", 'R');
    details.hold = NumberIn(row, "File Read Hold Frequency", 1);
    details.quotes = CodeIn(row, "Code Input Value In Quotes", 'D');
    details.atEnd = CodeIn(row, "If End of File", 'L');
    details.inputPattern = row.Text("Code Input Datetime Edit Pattern");
    details.connectionId = row.Long("FK CON Id");
    details.connection = ReadConnection(details.connectionId).value_or(ConnectionDetails{});
    return details;
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

std::optional<ValueSourceDetails> ReadValueSource(const ColumnRuleDetails& rule) {
    const RepositoryScope repository;
    const dao::Recordset row = SourceRow(rule);
    if (row.IsEOF())
        return std::nullopt;
    return DetailsOf(row);
}

ValueSourceField FaultyField(const ValueSourceDetails& details, const ColumnRuleDetails& rule) {
    if (fColumnHasDependency(rule.scenarioId, rule.tableRuleId, rule.tableId, rule.columnId))
        return Fault(ValueSourceField::Column, kResolvedByParent);
    if (rule.dataType == DataType::Boolean || rule.dataType == DataType::Blob)
        return Fault(ValueSourceField::Column, "A Boolean or Blob column takes no alternate data source.");
    const ValueSourceField number = NumberFault(details);
    return number == ValueSourceField::None ? OriginFault(details) : number;
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

void StoreValueSource(const ValueSourceDetails& details, const ColumnRuleDetails& rule) {
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

bool fSaveValueSource(const ValueSourceDetails& details, const ColumnRuleDetails& rule) {
    try {
        if (FaultyField(details, rule) != ValueSourceField::None)
            return false;
        const RepositoryScope repository;
        StoreValueSource(details, rule);
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("storing the alternate data source", error);
        return false;
    }
}

}  // namespace vellumark
