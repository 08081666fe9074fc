#include <gtest/gtest.h>

#include "platform/dao/database.h"
#include "servers.h"

namespace vellumark::test {
namespace {

class ServerTypesTest : public ::testing::TestWithParam<Engine> {
 protected:
    ServerDatabase database{GetParam()};
};

struct TypeCase {
    std::string declaration;
    std::string ado;  // code, length, precision, scale
    std::string dao;  // code, size
};

std::vector<TypeCase> PostgresTypes() {
    return {{"boolean", "11|null|null|null", "1|1"},
            {"smallint", "2|null|5|null", "3|2"},
            {"integer", "3|null|10|null", "4|4"},
            {"bigint", "20|null|19|null", "16|8"},
            {"real", "4|null|7|null", "6|4"},
            {"double precision", "5|null|15|null", "7|8"},
            {"numeric(10,2)", "131|null|10|2", "19|16"},
            {"char(5)", "129|5|null|null", "18|5"},
            {"varchar(20)", "200|20|null|null", "10|20"},
            {"text", "201|8190|null|null", "12|0"},
            {"bytea", "205|null|null|null", "11|0"},
            {"date", "133|null|null|null", "8|8"},
            {"time", "134|null|null|null", "22|8"},
            {"timestamp", "135|null|null|null", "23|8"},
            {"timestamp with time zone", "135|null|null|null", "23|8"},
            {"time with time zone", "134|null|null|null", "22|8"},
            {"interval", "200|32|null|null", "10|32"},
            {"uuid", "72|null|null|null", "15|16"},
            {"bigserial", "20|null|19|null", "16|8"},
            {"money", "5|null|15|null", "7|8"},
            {"numeric", "131|null|28|6", "19|16"},
            {"char", "129|1|null|null", "18|1"},
            {"varchar", "200|255|null|null", "10|255"},
            {"json", "200|255|null|null", "10|255"},
            {"jsonb", "200|255|null|null", "10|255"},
            {"xml", "201|255|null|null", "12|0"},
            {"integer[]", "200|255|null|null", "10|255"},
            {"varchar(10)[]", "200|255|null|null", "10|255"},
            {"mood", "200|255|null|null", "10|255"},
            {"amount", "131|null|6|2", "19|16"},
            {"bit", "11|null|null|null", "1|1"},
            {"bit(8)", "200|8|null|null", "10|8"},
            {"inet", "200|50|null|null", "10|50"},
            {"point", "200|255|null|null", "10|255"}};
}

std::vector<TypeCase> MariaDBTypes() {
    return {{"bit", "11|null|null|null", "1|1"},
            {"boolean", "16|null|3|null", "2|1"},
            {"tinyint unsigned", "17|null|3|null", "2|1"},
            {"smallint", "2|null|5|null", "3|2"},
            {"smallint unsigned", "18|null|5|null", "3|2"},
            {"mediumint", "3|null|10|null", "4|4"},
            {"int", "3|null|10|null", "4|4"},
            {"int unsigned", "19|null|10|null", "4|4"},
            {"bigint", "20|null|19|null", "16|8"},
            {"bigint unsigned", "21|null|19|null", "16|8"},
            {"float", "4|null|7|null", "6|4"},
            {"double", "5|null|15|null", "7|8"},
            {"float(7,2)", "131|null|7|2", "20|16"},
            {"decimal", "131|null|10|0", "20|16"},
            {"decimal(10,2)", "131|null|10|2", "20|16"},
            {"decimal(10,2) unsigned", "131|null|10|2", "20|16"},
            {"int(6) zerofill", "19|null|10|null", "4|4"},
            {"mediumint unsigned", "19|null|10|null", "4|4"},
            {"bit(8)", "128|2|null|null", "9|2"},
            {"year", "2|null|5|null", "3|2"},
            {"enum('low','high','very high')", "130|9|null|null", "18|9"},
            {"set('a','b','cc')", "130|6|null|null", "18|6"},
            {"json", "203|2147483647|null|null", "12|0"},
            {"uuid", "72|null|null|null", "15|16"},
            {"char(5)", "130|5|null|null", "18|5"},
            {"varchar(20)", "202|20|null|null", "10|20"},
            {"text", "203|65535|null|null", "12|0"},
            {"longtext", "203|2147483647|null|null", "12|0"},
            {"binary(4)", "128|4|null|null", "9|4"},
            {"varbinary(9)", "204|9|null|null", "17|9"},
            {"blob", "205|65535|null|null", "11|0"},
            {"date", "133|null|null|null", "8|8"},
            {"time", "134|null|null|null", "22|8"},
            {"datetime", "135|null|null|null", "23|8"},
            {"timestamp", "135|null|null|null", "23|8"},
            {"tinytext", "203|255|null|null", "12|0"},
            {"varchar(20) character set latin1", "202|20|null|null", "10|20"}};
}

// The embedded store's own reading of declared types.
std::vector<TypeCase> SqliteTypes() {
    return {{"boolean", "11|null|null|null", "1|1"},
            {"tinyint", "17|null|3|null", "2|1"},
            {"integer", "3|null|10|null", "4|4"},
            {"bigint", "20|null|19|null", "16|8"},
            {"real", "5|null|15|null", "7|8"},
            {"numeric(10,2)", "131|null|10|2", "19|16"},
            {"char(5)", "129|5|null|null", "18|5"},
            {"nvarchar(20)", "202|20|null|null", "10|20"},
            {"text", "201|1073741823|null|null", "12|0"},
            {"json", "201|1073741823|null|null", "12|0"},
            {"bigint unsigned", "20|null|19|null", "16|8"},
            {"timestamp with time zone", "135|null|null|null", "8|8"},
            {"", "205|null|null|null", "11|0"},
            {"blob", "205|null|null|null", "11|0"},
            {"date", "133|null|null|null", "8|8"},
            {"time", "134|null|null|null", "22|8"},
            {"timestamp", "135|null|null|null", "8|8"}};
}

std::string Number(const ado::Rowset& rows, std::string_view field) {
    return rows.IsNull(field) ? "null" : std::to_string(rows.Long(field));
}

TEST_P(ServerTypesTest, ReportsEveryCommonType) {
    const std::vector<TypeCase> cases = GetParam() == Engine::PostgreSQL ? PostgresTypes()
                                        : GetParam() == Engine::MariaDB  ? MariaDBTypes()
                                                                         : SqliteTypes();
    std::string columns;
    for (std::size_t i = 0; i < cases.size(); ++i)
        columns += (i == 0 ? "c" : ", c") + std::to_string(i) + " " + cases[i].declaration;
    if (GetParam() == Engine::PostgreSQL)
        database.Run("create type mood as enum ('low', 'high'); create domain amount as numeric(6,2)");
    database.Run("create table types (" + columns + ")");

    ado::Connection connection;
    connection.Open(database.ConnectionString());
    ado::Rowset rows = connection.OpenSchema(ado::SchemaKey::Columns, {std::nullopt, std::nullopt, "TYPES"});
    const dao::TableDef definition =
        dao::OpenOdbcDatabase("", database.ConnectionString())
            .TableDefinition(GetParam() == Engine::PostgreSQL ? "public.types" : "types");
    ASSERT_EQ(definition.fields.size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i, rows.MoveNext()) {
        EXPECT_EQ(rows.Long("ORDINAL_POSITION"), static_cast<int>(i + 1));
        EXPECT_EQ(Number(rows, "DATA_TYPE") + "|" + Number(rows, "CHARACTER_MAXIMUM_LENGTH") + "|" +
                      Number(rows, "NUMERIC_PRECISION") + "|" + Number(rows, "NUMERIC_SCALE"),
                  cases[i].ado)
            << cases[i].declaration;
        const dao::ColumnType& type = definition.fields[i].type;
        EXPECT_EQ(std::to_string(type.daoType) + "|" + std::to_string(type.daoSize), cases[i].dao)
            << cases[i].declaration;
    }
    EXPECT_TRUE(rows.IsEOF());
}

INSTANTIATE_TEST_SUITE_P(Engines, ServerTypesTest,
                         ::testing::Values(Engine::PostgreSQL, Engine::MariaDB, Engine::SQLite),
                         [](const auto& each) { return EngineName(each.param); });

}  // namespace
}  // namespace vellumark::test
