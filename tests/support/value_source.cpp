#include "value_source.h"

#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"

namespace vellumark::test {

namespace {

void Insert(const dao::Database& database, const std::string& table, const Fields& fields) {
    dao::Recordset rows = database.OpenForAppend(table);
    rows.AddNew();
    for (const auto& [name, value] : fields)
        rows.Set(name, value);
    rows.Update();
}

}  // namespace

void ValueSourceTest::SetUp() {
    InsertScenarioTest::SetUp();
    served.tableRuleId = served.columnRuleId = served.tableId = served.columnId = 1;
    served.tableName = "PEOPLE";
    served.columnName = "NAME";
    served.dataType = DataType::Character;
    served.options = &options;
    served.random = &random;
}

void ValueSourceTest::AddSource(const Fields& fields, int tableAndRule, int column) {
    RepositoryScope repository;
    RepositoryDatabase.Execute("delete from [Value Source] where [FK TTR Id] = ? and [FK TCR Id] = ?",
                               {tableAndRule, column});
    Fields all = {{"FK TCR Id", column},
                  {"FK TTR Id", tableAndRule},
                  {"FK COL Id", column},
                  {"FK TAB Id", tableAndRule},
                  {"FK DBS Id", CurrentDBSId},
                  {"FK TSO Id", CurrentTSOId},
                  {"Start from Row", 1},
                  {"End at Row", 999999999},
                  {"File Read Interval", 1},
                  {"Read File Order", "S"},
                  {"File Read Hold Frequency", 1},
                  {"If End of File", "S"},
                  {"Code Input Value In Quotes", "N"}};
    all.insert(all.end(), fields.begin(), fields.end());
    Insert(RepositoryDatabase, "Value Source", all);
}

int ValueSourceTest::AddCategory(const std::vector<std::string>& values) {
    ValuesScope scope;
    const int id = NextId(ValuesDatabase, "select max([Id]) from [Category]");
    Insert(ValuesDatabase, "Category", {{"Id", id}, {"Name", "Category " + std::to_string(id)}});
    // Stored backwards, so that only the sort order brings them into their order.
    for (std::size_t i = values.size(); i > 0; --i)
        Insert(ValuesDatabase, "Value",
               {{"Id", static_cast<int>(values.size() - i + 1)},
                {"FK CAT Id", id},
                {"Value", values[i - 1]},
                {"Sort Order", static_cast<int>(i)}});
    return id;
}

int ValueSourceTest::AddConversion(const std::vector<std::pair<std::string, std::string>>& codes) {
    ValuesScope scope;
    const int id = NextId(ValuesDatabase, "select max([Id]) from [Conversion Code]");
    Insert(ValuesDatabase, "Conversion Code", {{"Id", id}, {"Name", "Codes"}});
    int number = 0;
    for (const auto& [code, value] : codes)
        Insert(ValuesDatabase, "Conversion Code Value",
               {{"Id", ++number}, {"FK CNV Id", id}, {"Code", code}, {"Value", value}});
    return id;
}

int ValueSourceTest::AddConnectionRow(const std::string& description, char protocol,
                                      const std::string& connectionString, const std::string& table,
                                      const std::string& column) {
    ConnectionDetails details;
    details.description = description;
    details.protocol = protocol;
    details.connectionString = connectionString;
    details.table = table;
    details.column = column;
    const int id = NextConnectionId();
    AddConnection(id, details);
    return id;
}

std::string ValueSourceTest::Read(int rows) {
    RepositoryScope repository;
    ValuesScope values;
    const std::unique_ptr<ValueReader> reader = MakeValueReader(served);
    std::string text;
    for (int row = 1; row <= rows; ++row) {
        text += ' ';
        if (!reader->fGetAlternateValue(row, text))
            return text + "!";
    }
    return text;
}

std::string ReadingFailure(const std::string& text) {
    return "critical: " + text + "\n\nTable: PEOPLE\nColumn: NAME";
}

}  // namespace vellumark::test
