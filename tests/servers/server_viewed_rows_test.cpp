#include "viewed_rows_cases.h"

namespace vellumark::test {
namespace {

INSTANTIATE_TEST_SUITE_P(Servers, ViewedRowsTest,
                         ::testing::Values(ViewRoute{Engine::PostgreSQL, 'A'},
                                           ViewRoute{Engine::PostgreSQL, 'D'},
                                           ViewRoute{Engine::MariaDB, 'A'}, ViewRoute{Engine::MariaDB, 'D'}),
                         RouteName);

class ViewedServerTest : public ViewedRowsTest {};

TEST_P(ViewedServerTest, ALostConnectionIsToldOfAndTheRowStaysAsItWasRead) {
    Run("create table item (id integer primary key, name varchar(40)); insert into item values (1, 'pen')");
    Show("item");
    const bool postgres = GetParam().engine == Engine::PostgreSQL;
    ASSERT_TRUE(
        data->fRunSQL(postgres ? "select pg_backend_pid()" : "select connection_id()", [] { return true; }));
    const std::string session = Shown();
    Show("item");
    Run((postgres ? "select pg_terminate_backend(" : "kill ") + session + (postgres ? ")" : ""));
    EXPECT_EQ(data->Update(0, {Cell(1, "ink")}), RowChange::Refused);
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: Error "));
    EXPECT_EQ(Shown(), "1|pen");
    EXPECT_EQ(Seen("select name from item"), "pen");
}

INSTANTIATE_TEST_SUITE_P(Servers, ViewedServerTest,
                         ::testing::Values(ViewRoute{Engine::PostgreSQL, 'A'},
                                           ViewRoute{Engine::MariaDB, 'D'}),
                         RouteName);

}  // namespace
}  // namespace vellumark::test
