#include "engine/modTableStatistics.h"

#include <gmock/gmock.h>

#include "repository/modVellumark.h"
#include "session.h"

namespace vellumark {
namespace {

using TableStatisticsTest = test::SessionTest;

TEST_F(TableStatisticsTest, ColumnsCountByFlagRoleAndType) {
    MakeSchema("Other");
    AddTable("All", {"A Blob"});
    MakeSchema("Shop");
    AddTable("empty", {});
    AddTable("All", {"A Character", "B Integer", "C Long Integer", "D Currency", "E Single", "F Big Integer",
                     "G Tiny Integer", "H Double", "I Boolean", "J Date", "K Time", "L TimeStamp", "M Blob",
                     "N Variant", "O Character"});
    AddTable("Zoo", {"A Date"});
    {
        const RepositoryScope repository;
        for (const char* change :
             {"[Flag Identifier] = True where [Id] in (1, 2)", "[Role] = 'Foreign Key' where [Id] = 3",
              "[Flag Optional] = False where [Id] <= 4", "[Flag Optional] = True where [Id] between 5 and 9"})
            RepositoryDatabase.Execute(std::string("update [Column] set ") + change +
                                       " and [FK TAB Id] = 2 and [FK DBS Id] = 2");
    }
    EXPECT_THAT(StatisticsTables(), testing::ElementsAre("All", "empty", "Zoo"));
    const TableStatistics counts = CountTableColumns("all");
    EXPECT_EQ(counts.columns, 15);
    EXPECT_EQ(counts.identifier, 2);
    EXPECT_EQ(counts.foreignKey, 1);
    EXPECT_EQ(counts.mandatory, 4);
    EXPECT_EQ(counts.optional, 5);
    EXPECT_EQ(counts.character, 2);
    EXPECT_EQ(counts.numeric, 7);
    for (const int one : {counts.boolean, counts.date, counts.time, counts.timestamp, counts.blob})
        EXPECT_EQ(one, 1);
    EXPECT_EQ(CountTableColumns("empty").columns, 0);
    EXPECT_EQ(CountTableColumns("missing").columns, 0);
}

}  // namespace
}  // namespace vellumark
