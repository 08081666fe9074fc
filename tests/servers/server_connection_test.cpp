#include <gtest/gtest.h>

#include "schema/modConnectionTables.h"
#include "schema/modDatabaseConnection.h"
#include "servers.h"
#include "session.h"

namespace vellumark::test {
namespace {

class ServerConnectionTest : public SessionTest, public ::testing::WithParamInterface<Engine> {
 protected:
    void TearDown() override {
        ConnectionForm = {};
        SessionTest::TearDown();
    }

    ConnectionDetails Form(char protocol) {
        ConnectionDetails form;
        form.dbmsType = kDbmsOther;
        form.protocol = protocol;
        form.useODBC = true;
        form.connectionString = database.ConnectionString();
        return form;
    }

    ServerDatabase database{GetParam()};
};

TEST_P(ServerConnectionTest, ListsTablesByOwnerAndTheirColumns) {
    const bool hasOwners = GetParam() == Engine::PostgreSQL;
    database.Run("create table \"Log\" (\"B\" integer, \"A\" integer);");
    if (hasOwners)
        database.Run("create schema \"Audit\"; create table \"Audit\".\"Log\" (\"C\" integer);");
    for (const char protocol : {'A', 'D'}) {
        const std::string server = TestConnection(Form(protocol)).value_or("none");
        EXPECT_TRUE(server.starts_with(EngineName(GetParam()) + " ")) << server;
        const auto tables = ListConnectionTables(Form(protocol)).value();
        std::vector<std::string> names;
        for (const TableEntry& entry : tables)
            names.push_back(QualifiedName(entry));
        EXPECT_EQ(names, hasOwners ? (std::vector<std::string>{"Audit.Log", "public.Log"})
                                   : std::vector<std::string>{"Log"});
        const TableEntry& log = tables[FindTableEntry(tables, hasOwners ? "PUBLIC.log" : "log").value()];
        EXPECT_EQ(ListConnectionColumns(Form(protocol), log), (std::vector<std::string>{"B", "A"}));
        if (hasOwners) {
            const auto columns = ListConnectionColumns(Form(protocol), {"Log", "Audit"});
            EXPECT_EQ(columns, std::vector<std::string>{"C"});
        }
    }
}

std::string NameOf(const ::testing::TestParamInfo<Engine>& each) {
    return EngineName(each.param);
}

INSTANTIATE_TEST_SUITE_P(Engines, ServerConnectionTest,
                         ::testing::Values(Engine::PostgreSQL, Engine::MariaDB, Engine::SQLite), NameOf);

}  // namespace
}  // namespace vellumark::test
