#include "schema/modTableList.h"

#include <gmock/gmock.h>

#include "embedded.h"
#include "recorder.h"
#include "schema/modDatabaseConnection.h"
#include "temp_folder.h"

namespace vellumark {
namespace {

TEST(ModTableList, SplitsAtTheFirstPoint) {
    const struct {
        std::string_view name;
        TableEntry entry;
    } cases[] = {
        {"Orders", {"Orders", ""}}, {"dbo.Orders", {"Orders", "dbo"}},
        {"a.b.c", {"b.c", "a"}},    {".Orders", {"Orders", ""}},
        {"dbo.", {"", "dbo"}},      {"", {"", ""}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SplitOwnerName(c.name), c.entry) << c.name;
}

TEST(ModTableList, IgnoresByOwnerAndPrefixes) {
    const struct {
        std::string_view dbms, ownerFilter;
        TableEntry entry;
        std::string_view ownerPrefix, tablePrefix;
        bool ignored;
    } cases[] = {
        {kDbmsJet, "", {"Orders", ""}, "", "", false},
        {kDbmsJet, "", {"MSysObjects", ""}, "", "msys", true},
        {kDbmsJet, "", {"TMSys", ""}, "", "msys", false},
        {kDbmsOther, "DBO", {"Orders", "dbo"}, "", "", false},
        {kDbmsOther, "dbo", {"Orders", ""}, "", "", true},
        {kDbmsOther, "dbo", {"Orders", "dbox"}, "", "", true},
        {kDbmsDB2, "", {"Orders", "SYSCAT"}, "sys", "sys", true},
        {kDbmsDB2, "", {"SYSTABLES", "me"}, "sys", "sys", true},
        {kDbmsDB2, "", {"Orders", "sy"}, "sys", "sys", false},
        {kDbmsOracle, "", {"Orders", ""}, "", "", true},
        {kDbmsOracle, "", {"Orders", "SCOTT"}, "sys", "", false},
    };
    for (const auto& c : cases) {
        DBMSType = c.dbms;
        EXPECT_EQ(fIgnoreTable(c.ownerFilter, c.entry, c.ownerPrefix, c.tablePrefix), c.ignored)
            << c.entry.owner << "." << c.entry.table;
    }
    DBMSType.clear();
}

TEST(ModTableList, SkipsWhatIsNoTable) {
    EXPECT_FALSE(fSkipADOTable("", "TABLE", ""));
    EXPECT_FALSE(fSkipADOTable("DBO", "TABLE", "dbo"));
    EXPECT_TRUE(fSkipADOTable("", "TABLE", "dbo"));
    EXPECT_TRUE(fSkipADOTable("dbo", "VIEW", "dbo"));
    EXPECT_TRUE(fSkipADOTable("", "table", ""));
    EXPECT_TRUE(fSkipADOTable("", "SYSTEM TABLE", ""));
}

TEST(ModTableList, ListsThroughBothProtocols) {
    test::Recorder recorder;
    const test::TempFolder folder;
    const std::string path = test::MakeEmbedded(folder.Path("x.mdb"),
                                                "create table Z (x); create view V as select x from Z; "
                                                "create table [me.A b] (x); create table SysX (x);");
    ConnectMode = kConnectForm;
    ASSERT_TRUE(fOpenADOConnection(test::AccessString(path)));
    ASSERT_TRUE(fOpenDAODatabase(path, false, ""));

    EXPECT_TRUE(fListTables('A', "", "me", "sys"));
    EXPECT_THAT(ListedTables,
                testing::ElementsAre(TableEntry{"Z", ""}, TableEntry{"me.A b", ""}, TableEntry{"SysX", ""}));
    EXPECT_TRUE(fListTables('D', "", "", "SYS"));
    EXPECT_THAT(ListedTables, testing::ElementsAre(TableEntry{"MSysProperties", ""}, TableEntry{"Z", ""},
                                                   TableEntry{"A b", "me"}));
    EXPECT_TRUE(fListTables('D', "ME", "", ""));
    EXPECT_THAT(ListedTables, testing::ElementsAre(TableEntry{"A b", "me"}));
    EXPECT_EQ(recorder.Take(), "");

    TargetConnections.Close();
    EXPECT_FALSE(fListTables('A', "", "", ""));
    EXPECT_TRUE(ListedTables.empty());
    EXPECT_EQ(recorder.Take(),
              "exclamation: Error: 3704 Operation is not allowed when the object is closed.");
}

}  // namespace
}  // namespace vellumark
