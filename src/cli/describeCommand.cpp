#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <vector>

#include "cli/commands.h"
#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

using Line = std::array<std::string, 5>;

// The data type with the sizes that it has, such as "Character(20)" or "Double(10,2)".
std::string TypeText(const dao::Recordset& column) {
    std::string type = column.Text("Vellumark Data Type");
    const int length = column.Long("Vellumark Character Maximum Length");
    const int precision = column.Long("Vellumark Numeric Precision");
    const int scale = column.Long("Vellumark Numeric Scale");
    if (length > 0)
        return type + "(" + std::to_string(length) + ")";
    if (scale > 0)
        return type + "(" + std::to_string(precision) + "," + std::to_string(scale) + ")";
    return precision > 0 ? type + "(" + std::to_string(precision) + ")" : type;
}

Line DescribeColumn(const dao::Recordset& column) {
    const std::string parent = column.Text("Parent Table");
    return {column.Text("Name"), TypeText(column), column.Boolean("Flag Identifier") ? "yes" : "",
            column.Boolean("Flag Optional") ? "yes" : "",
            parent.empty() ? "" : parent + "." + column.Text("Parent Column")};
}

std::vector<Line> DescribeColumns(int tabId) {
    dao::Recordset columns = RepositoryDatabase.OpenRecordset(
        "select c.*, t.[Name] as [Parent Table], p.[Name] as [Parent Column] from [Column] c"
        " left join [Table] t on t.[FK DBS Id] = c.[FK DBS Id] and t.[Id] = c.[FK COL TAB Id]"
        " left join [Column] p on p.[FK DBS Id] = c.[FK DBS Id] and p.[FK TAB Id] = c.[FK COL TAB Id]"
        " and p.[Id] = c.[FK COL Id]"
        " where c.[FK DBS Id] = ? and c.[FK TAB Id] = ? order by c.[Sort Order] asc",
        {CurrentDBSId, tabId});
    std::vector<Line> lines = {{"Column", "Type", "Key", "Optional", "Parent"}};
    for (; !columns.IsEOF(); columns.MoveNext())
        lines.push_back(DescribeColumn(columns));
    return lines;
}

void PrintAligned(const std::vector<Line>& lines) {
    std::array<std::size_t, std::tuple_size_v<Line>> widths = {};
    for (const Line& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], platform::CharacterCount(line[i]));
    for (const Line& line : lines) {
        std::string text;
        for (std::size_t i = 0; i < line.size(); ++i)
            text += line[i] + std::string(widths[i] + 2 - platform::CharacterCount(line[i]), ' ');
        text.erase(text.find_last_not_of(' ') + 1);
        std::cout << text << "\n";
    }
}

bool DescribeTable(const std::string& schema, const std::string& table) {
    if (!OpenSchemaNamed(schema))
        return false;
    const RepositoryScope repository;
    const int tabId = FindTable(table);
    if (tabId > 0)
        PrintAligned(DescribeColumns(tabId));
    return tabId > 0;
}

}  // namespace

void AddDescribeCommand(CLI::App& app, CommandLine& line) {
    const auto schema = std::make_shared<std::string>();
    const auto table = std::make_shared<std::string>();
    CLI::App* describe = app.add_subcommand("describe", "Show the columns of a table");
    describe->add_option("SCHEMA", *schema, "Name of the Database schema")->required();
    describe->add_option("TABLE", *table, "Name of the table")->required();
    describe->callback(
        [&line, schema, table] { line.run = [schema, table] { return DescribeTable(*schema, *table); }; });
}

}  // namespace vellumark
