#include "scenario/modRuleOrder.h"

#include <gtest/gtest.h>

#include "repository/modVellumark.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "session.h"

namespace vellumark {
namespace {

class RuleOrderTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Shop");
        table = AddTable("T", {"A Character", "B Character", "C Character"});
        CreateSystemScenario();
        ASSERT_TRUE(CreateScenario("Fill"));
    }

    void SetOrders(const std::vector<int>& orders) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("delete * from [TSO Insert Table Rule] where [FK TSO Id] = 1");
        for (const int order : orders) {
            const int id = AddTableRule(table, 1, 9, true);
            RepositoryDatabase.Execute(
                "update [TSO Insert Table Rule] set [Sort Order] = ? where [FK TSO Id] = 1 and [Id] = ?",
                {order, id});
        }
    }

    // "Id:Sort Order" of each rule in its order.
    std::string Order() {
        const RepositoryScope repository;
        dao::Recordset rules = RepositoryDatabase.OpenRecordset(
            "select [Id], [Sort Order] from [TSO Insert Table Rule] where [FK TSO Id] = 1 order by [Sort "
            "Order]");
        std::string text;
        for (; !rules.IsEOF(); rules.MoveNext())
            text += (text.empty() ? "" : " ") + rules.Text("Id") + ":" + rules.Text("Sort Order");
        return text;
    }

    int table = 0;
};

TEST_F(RuleOrderTest, SourceEndsImmediatelyAboveItsTarget) {
    const struct {
        std::vector<int> orders;
        int source, target;
        const char* order;
    } cases[] = {
        {{1, 2, 3, 4}, 1, 4, "2:1 3:2 1:3 4:4"},
        {{1, 2, 3, 4}, 2, 3, "1:1 2:2 3:3 4:4"},  // it is there already
        {{1, 2, 3, 4}, 4, 1, "4:1 1:2 2:3 3:4"},
        {{1, 2, 3, 4}, 3, 2, "1:1 3:2 2:3 4:4"},
        {{1, 2, 3, 4}, 3, 3, "1:1 2:2 3:3 4:4"},
        {{1, 2, 3, 4}, 3, 9, "1:1 2:2 3:3 4:4"},
        {{2, 5, 9}, 1, 3, "2:4 1:8 3:9"},  // gaps stay gaps
        {{2, 5, 9}, 3, 1, "3:2 1:3 2:6"},
        {{3, 1, 3}, 3, 1, "2:1 3:2 1:3"},  // equal numbers part
        {{1, 2, 2, 3}, 1, 3, "2:1 1:2 3:3 4:4"},
    };
    for (const auto& c : cases) {
        SetOrders(c.orders);
        UpdateSortOrder(true, SortedRules::TTR, 0, c.source, c.target);
        EXPECT_EQ(Order(), c.order) << c.source << " above " << c.target;
    }
}

TEST_F(RuleOrderTest, OnlyTheNamedListMoves) {
    const int rule = AddTableRule(table, 1, 9, true), other = AddTableRule(table, 1, 9, true);
    const std::string columns =
        "select [FK TSO Id], [FK TTR Id], [Id] from [TSO Insert Column Rule] order by 1, 2, [Sort Order]";
    UpdateSortOrder(true, SortedRules::TCR, other, 3, 1);
    EXPECT_EQ(Rows(columns), "0|1|1\n0|1|2\n0|1|3\n1|1|1\n1|1|2\n1|1|3\n1|2|3\n1|2|1\n1|2|2");
    UpdateSortOrder(false, SortedRules::TCR, rule, 2, 1);
    EXPECT_EQ(Rows(columns), "0|1|2\n0|1|1\n0|1|3\n1|1|1\n1|1|2\n1|1|3\n1|2|3\n1|2|1\n1|2|2");
}

TEST_F(RuleOrderTest, DeleteRulesMoveInTheirOwnTable) {
    AddDeleteTableRule(table, "");
    AddDeleteTableRule(table, "");
    AddTableRule(table, 1, 9, true);
    AddTableRule(table, 1, 9, true);
    UpdateSortOrder(true, SortedRules::DTR, 0, 2, 1);
    EXPECT_EQ(Rows("select [Id] from [TSO Delete Table Rule] where [FK TSO Id] = 1 order by [Sort Order]"),
              "2\n1");
    EXPECT_EQ(Order(), "1:1 2:2");
}

}  // namespace
}  // namespace vellumark
