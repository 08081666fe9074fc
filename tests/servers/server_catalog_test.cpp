#include <gmock/gmock.h>

#include "platform/odbc/catalog.h"
#include "platform/odbc/driver_string.h"
#include "servers.h"

namespace vellumark::odbc {
namespace {

using test::Engine;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

// What a database that nobody has prepared for is read by: the driver's own answers. Drivers that are known
// to leave something out show that the rest still comes.
class PlainCatalogTest : public ::testing::TestWithParam<Engine> {
 protected:
    PlainCatalogTest() {
        database.Run(R"(
            create table "Part" ("Id" integer primary key, "Code" varchar(10) not null unique, "Note" varchar(20));
            create table "Parts" ("Other" integer);
            create table "Use" ("Line" integer not null, "Of" integer not null, primary key ("Of", "Line"),
                                foreign key ("Of") references "Part" ("Id"));)");
    }

    CatalogTable Named(const std::string& name) {
        for (const CatalogTable& table : catalog.Tables())
            if (table.name == name && table.type == "TABLE")
                return table;
        throw std::runtime_error(name + " is missing");
    }

    test::ServerDatabase database{GetParam()};
    Connection connection{DriverManagerString(database.ConnectionString())};
    Catalog catalog{connection};
};

TEST_P(PlainCatalogTest, ColumnsAreTheTablesOwn) {
    std::vector<std::string> columns;
    for (const CatalogColumn& column : catalog.Columns(Named("Part")))
        columns.push_back(column.name + (column.nullable ? "?" : ""));
    EXPECT_THAT(columns, ElementsAre("Id", "Code", "Note?"));
}

TEST_P(PlainCatalogTest, IndexesTellTheKeys) {
    std::vector<std::string> keys;
    for (const CatalogTable& table : {Named("Part"), Named("Use"), Named("Parts")})
        for (const CatalogIndex& index : catalog.Indexes(table))
            if (index.unique)
                for (const std::string& column : index.columns)
                    keys.push_back((index.primary ? "primary " : "unique ") + column);
    EXPECT_THAT(keys, UnorderedElementsAre("primary Id", "unique Code", "primary Of", "primary Line"));
}

TEST_P(PlainCatalogTest, KeysLeadToTheirTable) {
    const std::vector<CatalogKey> keys = catalog.KeysTo(Named("Part"));
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys[0].parentTable + "." + keys[0].parentColumn + "<" + keys[0].childTable + "." +
                  keys[0].childColumn,
              "Part.Id<Use.Of");
    EXPECT_TRUE(catalog.KeysTo(Named("Use")).empty());
}

INSTANTIATE_TEST_SUITE_P(Engines, PlainCatalogTest,
                         ::testing::Values(Engine::PostgreSQL, Engine::MariaDB, Engine::SQLite),
                         [](const auto& each) { return test::EngineName(each.param); });

}  // namespace
}  // namespace vellumark::odbc
