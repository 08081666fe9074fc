#include "scenario/modScenarioTables.h"

#include "repository/modVellumark.h"
#include "session.h"

namespace vellumark {
namespace {

class ScenarioTablesTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Other");
        AddTable("Elsewhere", {});
        Execute("insert into [resolver Test Scenario Table] values (1, 3, 1)");
        MakeSchema("Shop");
        for (const char* name : {"Supplier", "Customer", "Payment"})
            AddTable(name, {});
        Execute("update [Table] set [COOLGen Entity Name] = 'BUYER' where [Name] = 'Customer'");
        CurrentTSOId = 3;
    }
    void Execute(const std::string& sql) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(sql);
    }
    static std::string Texts(const std::vector<ScenarioTable>& tables, bool entityFirst = false) {
        std::string texts;
        for (const ScenarioTable& table : tables)
            texts += ScenarioTableText(table, entityFirst) + "|";
        return texts;
    }
};

TEST_F(ScenarioTablesTest, TablesStandOnOneSideInTheOrderTheyCame) {
    EXPECT_EQ(Texts(TablesOutsideScenario()), "Supplier|Customer (buyer)|Payment|");
    EXPECT_EQ(Texts(TablesOutsideScenario(), true), "Supplier|(buyer) Customer|Payment|");
    ASSERT_TRUE(fOfferTables({3, 2}));
    EXPECT_EQ(Texts(TablesOfScenario()), "Payment|Customer (buyer)|");
    EXPECT_EQ(Texts(TablesOutsideScenario()), "Supplier|");
    ASSERT_TRUE(fWithdrawTables({3}));
    ASSERT_TRUE(fOfferTables({3, 1}));
    EXPECT_EQ(Texts(TablesOfScenario()), "Customer (buyer)|Payment|Supplier|");

    CurrentTSOId = 4;
    EXPECT_EQ(Texts(TablesOfScenario()), "") << "another Scenario has its own";
    ASSERT_TRUE(fOfferTables({1}));
    ASSERT_TRUE(fWithdrawTables({1}));
    EXPECT_EQ(Rows("select [FK DBS Id], [FK TSO Id], [FK TAB Id] from [resolver Test Scenario Table]"),
              "1|3|1\n2|3|2\n2|3|3\n2|3|1");
}

TEST_F(ScenarioTablesTest, AFailureMovesNothing) {
    Execute(
        "create trigger refuse before insert on [resolver Test Scenario Table] when new.[FK TAB Id] = 2 "
        "begin "
        "select raise(abort, 'refused'); end");
    EXPECT_FALSE(fOfferTables({1, 2, 3}));
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: Unexpected error occurred moving the tables.\n\n"));
    EXPECT_EQ(Count("resolver Test Scenario Table", "[FK DBS Id] = 2"), 0);
}

}  // namespace
}  // namespace vellumark
