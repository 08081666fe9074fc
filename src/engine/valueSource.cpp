#include "engine/valueSource.h"

#include <algorithm>
#include <string_view>

#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr int kNoEnd = 999999999;
constexpr std::string_view kKey =
    " where [FK TCR Id] = ? and [FK TTR Id] = ? and [FK COL Id] = ? and [FK TAB Id] = ? and [FK DBS Id] = ?"
    " and [FK TSO Id] = ?";

dao::Parameters KeyOf(const ReaderColumn& column) {
    return {column.columnRuleId, column.tableRuleId, column.columnId,
            column.tableId,      CurrentDBSId,       CurrentTSOId};
}

// A number that may be left blank.
int Number(const dao::Recordset& row, std::string_view name, int blank) {
    return row.Text(name).empty() ? blank : row.Long(name);
}

Stretch StretchOf(const dao::Recordset& row, const std::string& what) {
    return {std::max(Number(row, "Start from " + what, 1), 1), Number(row, "End at " + what, kNoEnd)};
}

EndOfValues EndOf(const std::string& code) {
    if (platform::EqualsIgnoringCase(code, "L"))
        return EndOfValues::Loop;
    return platform::EqualsIgnoringCase(code, "H") ? EndOfValues::Hold : EndOfValues::Stop;
}

ReadOrder OrderOf(const dao::Recordset& row) {
    return {platform::EqualsIgnoringCase(row.Text("Read File Order"), "R"),
            std::max(Number(row, "File Read Interval", 1), 0), EndOf(row.Text("If End of File"))};
}

}  // namespace

std::optional<ValueSource> ReadValueSource(const ReaderColumn& column) {
    const dao::Recordset row =
        RepositoryDatabase.OpenRecordset("select * from [Value Source]" + std::string(kKey), KeyOf(column));
    if (row.IsEOF())
        return std::nullopt;
    ValueSource source;
    source.type = row.Text("Type");
    source.categoryId = row.Long("FK CAT Id");
    source.conversionId = row.Long("FK CNV Id");
    source.connectionId = row.Long("FK CON Id");
    source.path = row.Text("Name and Path");
    source.sheet = row.Text("Sheet");
    source.rows = StretchOf(row, "Row");
    source.columns = StretchOf(row, "Column");
    source.rowEndCell = row.Text("Row end Cell");
    source.columnEndCell = row.Text("Column end Cell");
    source.delimiter = row.Text("Delimiter");
    source.fieldNumber = Number(row, "Delimited Field Number", 1);
    source.order = OrderOf(row);
    source.holdFrequency = row.Long("File Read Hold Frequency");
    source.quotesCode = row.Text("Code Input Value In Quotes");
    source.datetimePattern = row.Text("Code Input Datetime Edit Pattern");
    return source;
}

void WriteReadingState(const ReaderColumn& column, const ReadingState& state) {
    dao::Parameters parameters = {state.lastValue,  state.holdCounter, state.lastRow,
                                  state.lastColumn, state.totalRows,   state.totalColumns};
    const dao::Parameters key = KeyOf(column);
    parameters.insert(parameters.end(), key.begin(), key.end());
    RepositoryDatabase.Execute(
        "update [Value Source] set [temp Last Value] = ?, [temp Hold Counter] = ?,"
        " [temp Last Row Processed] = ?, [temp Last Column Processed] = ?, [temp Total Rows] = ?,"
        " [temp Total Columns] = ?" +
            std::string(kKey),
        parameters);
}

}  // namespace vellumark
