#include "repository/modDescriptions.h"

#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

std::string SingleName(std::string_view sql, int id) {
    const ValuesScope values;
    const dao::Recordset rows = ValuesDatabase.OpenRecordset(sql, {id});
    return rows.RecordCount() == 1 ? rows.Text("Name") : std::string();
}

}  // namespace

std::string ConnectionDescription(std::string_view dbms, std::string_view dsn, std::string_view database,
                                  std::string_view mdbFile, std::string_view table, std::string_view column) {
    std::string text;
    const auto add = [&](std::string_view label, std::string_view value) {
        if (!value.empty())
            text.append(" ").append(label).append(": '").append(value).append("'");
    };
    add("DBMS", dbms);
    add("DSN", dsn);
    add("Database", database);
    add("MDB", FileNameOnly(mdbFile));
    add("Table", table);
    add("Column", column);
    return text;
}

std::string ValueSourceDescription(std::string_view type, std::string_view nameAndPath, int catId,
                                   std::string_view connection) {
    if (type == "V")
        return "Category: " + CategoryName(catId);
    if (type == "P" || type == "D")
        return "File: " + FileNameOnly(nameAndPath);
    if (type == "X")
        return "Spreadsheet: " + FileNameOnly(nameAndPath);
    return type == "O" ? std::string(connection) : std::string();
}

std::string CategoryName(int id) {
    return SingleName("select * from [Category] where [Id] = ?", id);
}

std::string ConversionCodeName(int id) {
    return SingleName("select * from [Conversion Code] where [Id] = ?", id);
}

std::string ConversionValue(int cnvId, std::string_view code) {
    const dao::Recordset rows = ValuesDatabase.OpenRecordset(
        "select * from [Conversion Code Value] where [FK CNV Id] = ? and [Code] = ?", {cnvId, code});
    return rows.IsEOF() ? std::string(code) : rows.Text("Value");
}

}  // namespace vellumark
