#include "repository/modStoreTables.h"

#include "platform/dao/declared_type.h"
#include "repository/modOptionsMaintenance.h"

namespace vellumark {

namespace {

using Columns = std::vector<StoreColumn>;

StoreColumn Long(std::string name) {
    return {std::move(name), dao::dbLong};
}

StoreColumn Flag(std::string name) {
    return {std::move(name), dao::dbBoolean};
}

StoreColumn Moment(std::string name) {
    return {std::move(name), dao::dbDate};
}

StoreColumn Text(std::string name, int size = 255) {
    return {std::move(name), dao::dbText, size};
}

StoreColumn Code(std::string name) {
    return Text(std::move(name), 1);
}

StoreTable SchemaTable() {
    return {"Schema",
            {Moment("Date Installed"),
             Moment("Date Last Executed"),
             Long("Number of Executions"),
             {"Repository Version Number", dao::dbInteger}},
            {}};
}

StoreTable OptionsTable() {
    StoreTable table{"Options", {}, {}};
    for (const OptionColumn& option : OptionColumns())
        table.columns.push_back({option.name, option.type, option.size});
    return table;
}

StoreTable DatabaseTable() {
    return {"Database",
            {Long("Id"), Text("Name"), Text("Description"), Code("Source"), Text("COOLGen Model Name"),
             Text("Sheet Weaver Style"), Moment("DateTime Last Accessed"), Long("FK CON Id Source"),
             Long("FK CON Id Target")},
            {"[Id]"}};
}

StoreTable ConnectionTable() {
    return {"Database Connection",
            {Long("Id"),
             Text("Description"),
             Text("Type", 50),
             Code("Access Method"),
             Code("VB Data Access Objects"),
             Flag("Flag VM Connection String"),
             {"Connection String", dao::dbMemo},
             Text("DSN"),
             Text("Database"),
             Text("MDB File"),
             Text("Server"),
             Text("UserId"),
             Text("Password"),
             Text("Owner"),
             Text("Ignore Table Prefix", 50),
             Text("Ignore Owner Prefix", 50),
             Text("Table"),
             Text("Column")},
            {"[Id]"}};
}

StoreTable TableTable() {
    return {"Table",
            {Long("Id"), Long("FK DBS Id"), Text("Name"), Text("Owner"), Text("COOLGen Entity Name"),
             Code("Status")},
            {"[FK DBS Id], [Id]", "[FK DBS Id], [Name]"}};
}

StoreTable ColumnTable() {
    return {"Column",
            {Long("Id"),
             Long("FK TAB Id"),
             Long("FK DBS Id"),
             Text("Name"),
             Text("COOLGen Attribute Name"),
             Long("Sort Order"),
             Text("Role", 20),
             Long("FK COL Id"),
             Long("FK COL TAB Id"),
             Text("ADO Data Type", 50),
             Long("ADO Character Maximum Length"),
             Long("ADO Numeric Precision"),
             Long("ADO Numeric Scale"),
             Text("Vellumark Data Type", 20),
             Long("Vellumark Character Maximum Length"),
             Long("Vellumark Numeric Precision"),
             Long("Vellumark Numeric Scale"),
             Long("Vellumark Size"),
             Flag("Flag Identifier"),
             Flag("Flag Optional"),
             Code("Status")},
            {"[FK DBS Id], [FK TAB Id], [Id]"}};
}

StoreTable ScenarioTable() {
    return {"Test Scenario",
            {Long("Id"), Long("FK DBS Id"), Text("Name", 50), Code("Type")},
            {"[FK DBS Id], [Id]"}};
}

StoreTable ScenarioTableTable() {
    return {"resolver Test Scenario Table",
            {Long("FK DBS Id"), Long("FK TSO Id"), Long("FK TAB Id")},
            {"[FK DBS Id], [FK TSO Id], [FK TAB Id]"}};
}

StoreTable TableRuleTable() {
    return {"TSO Insert Table Rule",
            {Long("Id"), Long("FK DBS Id"), Long("FK TSO Id"), Long("FK TAB Id"), Long("Sort Order"),
             Long("Start Range"), Long("End Range"), Long("Quantity"), Flag("Flag Use Generated Data"),
             Long("Retry Count Data Unique"), Code("Range order"), Code("Status")},
            {"[FK DBS Id], [FK TSO Id], [Id]", "[FK DBS Id], [FK TAB Id], [FK TSO Id]"}};
}

StoreTable ColumnRuleTable() {
    return {"TSO Insert Column Rule",
            {Long("Id"),
             Long("FK DBS Id"),
             Long("FK TSO Id"),
             Long("FK TTR Id"),
             Long("FK TAB Id"),
             Long("FK COL Id"),
             Long("Sort Order"),
             Code("Code Generate Data Type"),
             Flag("Flag Exclude"),
             Text("Constant Value"),
             Flag("Flag column unique"),
             Flag("Flag compound column unique"),
             Flag("flag user defined foreign key"),
             Code("Fill the column"),
             Code("Concat Value with Id"),
             Code("generated value too large"),
             Code("Range order"),
             Text("Start Range", 50),
             Text("End Range", 50),
             Code("date time increment"),
             Text("Code Output Datetime Edit Pattern"),
             Code("Code Output Textfile in Quotes"),
             Code("Char Output Textfile in Quotes"),
             Code("Status")},
            {"[FK DBS Id], [FK TSO Id], [FK TTR Id], [Id]",
             "[FK DBS Id], [FK TAB Id], [FK COL Id], [FK TSO Id]"}};
}

StoreTable DeleteRuleTable() {
    return {"TSO Delete Table Rule",
            {Long("Id"),
             Long("FK DBS Id"),
             Long("FK TSO Id"),
             Long("FK TAB Id"),
             Long("Sort Order"),
             {"Where Clause", dao::dbMemo},
             Code("Status")},
            {"[FK DBS Id], [FK TSO Id], [Id]"}};
}

StoreTable DependencyTable() {
    return {
        "resolver TTR dependency",
        {Long("Id"), Long("FK DBS Id"), Long("FK TSO Id"), Long("FK Child TTR Id"), Long("FK Child TAB Id"),
         Long("FK Child COL Id"), Long("FK Parent TTR Id"), Long("FK Parent TAB Id"),
         Long("FK Parent COL Id"), Long("Quantity children per parent"), Long("Increment parent count")},
        {"[FK DBS Id], [FK TSO Id], [FK Child TTR Id]", "[FK DBS Id], [FK TSO Id], [FK Parent TAB Id]"}};
}

StoreTable ValueSourceTable() {
    return {"Value Source",
            {Long("Id"),
             Long("FK TCR Id"),
             Long("FK TTR Id"),
             Long("FK COL Id"),
             Long("FK TAB Id"),
             Long("FK DBS Id"),
             Long("FK TSO Id"),
             Code("Type"),
             Long("FK CAT Id"),
             Long("FK CNV Id"),
             Long("FK CON Id"),
             {"Name and Path", dao::dbMemo},
             Text("Sheet"),
             Long("Start from Column"),
             Long("End at Column"),
             Text("Column end Cell"),
             Long("Start from Row"),
             Long("End at Row"),
             Text("Row end Cell"),
             Text("Sheet End of File"),
             Long("Delimited Field Number"),
             Code("Delimiter"),
             Long("File Read Interval"),
             Code("Read File Order"),
             Long("File Read Hold Frequency"),
             Code("Code Input Value In Quotes"),
             Code("If End of File"),
             Text("Code Input Datetime Edit Pattern"),
             Code("Status"),
             {"temp Last Value", dao::dbMemo},
             Long("temp Hold Counter"),
             Long("temp Last Row Processed"),
             Long("temp Last Column Processed"),
             Long("temp Total Rows"),
             Long("temp Total Columns")},
            {"[FK DBS Id], [FK TSO Id], [FK TTR Id], [FK TCR Id]"}};
}

}  // namespace

std::vector<StoreTable> RepositoryTables() {
    return {SchemaTable(),     OptionsTable(),    DatabaseTable(),      ConnectionTable(), TableTable(),
            ColumnTable(),     ScenarioTable(),   ScenarioTableTable(), TableRuleTable(),  ColumnRuleTable(),
            DeleteRuleTable(), DependencyTable(), ValueSourceTable()};
}

std::vector<StoreTable> ValuesTables() {
    return {{"Category", {Long("Id"), Text("Name"), Code("Data Type"), Code("Type")}, {"[Id]"}},
            {"Value",
             {Long("Id"), Long("FK CAT Id"), Text("Value"), Long("Sort Order"), Long("FK Depends CAT Id"),
              Long("FK Depends VLE Id")},
             {"[FK CAT Id], [Sort Order]", "[FK CAT Id], [Id]"}},
            {"Conversion Code", {Long("Id"), Text("Name", 100)}, {"[Id]"}},
            {"Conversion Code Value",
             {Long("Id"), Long("FK CNV Id"), Text("Code", 200), Text("Value", 200)},
             {"[FK CNV Id], [Code]"}}};
}

}  // namespace vellumark
