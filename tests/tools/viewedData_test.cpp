#include "test_files.h"
#include "tools/plainSelect.h"
#include "viewed_rows_cases.h"

namespace vellumark::test {
namespace {

INSTANTIATE_TEST_SUITE_P(File, ViewedRowsTest,
                         ::testing::Values(ViewRoute{Engine::SQLite, 'A', true},
                                           ViewRoute{Engine::SQLite, 'D', true},
                                           ViewRoute{Engine::SQLite, 'A'}),
                         RouteName);

class ViewedFileTest : public ViewedRowsTest {};

// The engine itself would take anything.
TEST_P(ViewedFileTest, WhatIsNoValueOfItsColumnIsRefused) {
    Run("create table t (id integer primary key, amount currency, sold yesno, at time)");
    Show("t");
    const struct {
        std::size_t column;
        std::string typed, outcome;
    } cases[] = {
        {1, "12.50", "12.5"},       {1, "-3", "-3"},         {1, "1E3", "1000"}, {1, "abc", "refused"},
        {1, "1,5", "refused"},      {2, "Yes", "-1"},        {2, "false", "0"},  {2, "maybe", "refused"},
        {3, "04:05PM", "16:05:00"}, {3, "25:00", "refused"},
    };
    ASSERT_TRUE(data->fInsert({Cell(0, "1")}));
    for (const auto& c : cases) {
        const RowChange change = data->Update(0, {Cell(c.column, c.typed)});
        EXPECT_EQ(change == RowChange::Done ? data->Row(0)[c.column].text : "refused", c.outcome) << c.typed;
    }
    EXPECT_NE(recorder.Take(), "");
}

TEST_P(ViewedFileTest, AnAccessFileIsReadAndSaysWhyItCannotBeChanged) {
    data.reset();
    const bool ado = GetParam().protocol == 'A';
    const std::string file = TestData("fruit.mdb");
    ASSERT_TRUE(ado ? fOpenADOConnection("driver={Microsoft Access Driver (*.mdb)};DBQ=" + file)
                    : fOpenDAODatabase(file, false, ""));
    data = std::make_unique<ViewedData>(TargetConnections, GetParam().protocol);
    ASSERT_TRUE(fListTables(GetParam().protocol, "", "", "MSys"));
    Show(ListedTables.front().table);
    ASSERT_GT(data->Count(), 0U);
    const std::string before = Shown();
    EXPECT_EQ(data->Update(0, {Null(0)}), RowChange::Refused);
    EXPECT_NE(recorder.Take().find("Microsoft Access file; Vellumark reads such files"), std::string::npos);
    EXPECT_EQ(Shown(), before);
}

INSTANTIATE_TEST_SUITE_P(File, ViewedFileTest,
                         ::testing::Values(ViewRoute{Engine::SQLite, 'A', true},
                                           ViewRoute{Engine::SQLite, 'D', true}),
                         RouteName);

TEST(PlainSelectTest, IsThatOfOneTableWithAllItsColumns) {
    const struct {
        const char *sql, *table;  // empty for any other statement
    } cases[] = {
        {"select * from item", "item"},
        {" SELECT *\nFROM [Order Line] where x = 'a, b' order by 1;", "Order Line"},
        {"select * from public.\"Item\" limit 5", "public.Item"},
        {"select *, 1 from item", ""},
        {"select * from item i", ""},
        {"select * from item, other", ""},
        {"select * from item where id in (1) union select * from other", ""},
        {"select * from (select 1)", ""},
        {"select * from", ""},
        {"delete from item", ""},
    };
    for (const auto& c : cases) {
        const std::optional<PlainSelect> select = ReadPlainSelect(c.sql);
        const std::string table =
            !select ? "" : (select->owner.empty() ? "" : select->owner + ".") + select->table;
        EXPECT_EQ(table, c.table) << c.sql;
    }
}

}  // namespace
}  // namespace vellumark::test
