#include "schema/modConnectionDelete.h"

#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "session.h"

namespace vellumark {
namespace {

class ConnectionDeleteTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        for (int id = 1; id <= 4; ++id)
            AddConnection(id, {});
        MakeSchema("Shop");
        AddTable("Orders", {"Id Integer", "Customer Integer"});
        Run("update [Database] set [FK CON Id Source] = 1, [FK CON Id Target] = 2");
        Run("insert into [Test Scenario] ([Id], [FK DBS Id], [Name]) values (3, 1, 'Fill')");
    }

    void Run(const std::string& sql) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(sql);
    }

    // A Value Source on connection 3 for the column Customer, and its Column rule.
    void AddSource(char dataOfRule, const std::string& differs) {
        Run("delete from [Value Source]");
        Run("delete from [TSO Insert Column Rule]");
        Run("insert into [Value Source] ([Id], [FK CON Id], [FK DBS Id], [FK TSO Id], [FK TAB Id], [FK COL "
            "Id], "
            "[FK TTR Id], [FK TCR Id]) values (1, 3, 1, 3, 1, 2, 5, 6)");
        Run("insert into [TSO Insert Column Rule] ([FK DBS Id], [FK TSO Id], [FK TAB Id], [FK COL Id], [FK "
            "TTR "
            "Id], [Id], [Code Generate Data Type]) values (1, 3, 1, 2, 5, 6, '" +
            std::string(1, dataOfRule) + "')");
        if (!differs.empty())
            Run("update [TSO Insert Column Rule] set [" + differs + "] = 77");
    }

    std::string Delete(int id) {
        const bool done = fDeleteConnection(id);
        return (done ? "True " : "False ") + recorder.Take();
    }

    static std::string Uses(int id) {
        std::string text;
        for (const std::string& use : ConnectionUses(id))
            text += use + "|";
        return text;
    }
};

constexpr const char* kRefusal = "exclamation: Unable to delete this connection\n";
constexpr const char* kQuestion = "question: Do you really want to delete this Connection?";

TEST_F(ConnectionDeleteTest, AConnectionOfASchemaStays) {
    AddSource('V', "");
    Run("update [Value Source] set [FK CON Id] = 1");
    EXPECT_EQ(Delete(1), std::string("False ") + kRefusal + "It is being used by database Shop");
    EXPECT_EQ(Delete(2), std::string("False ") + kRefusal + "It is being used by database Shop");
    EXPECT_EQ(Uses(1), "Source of Shop|Orders.Customer in Shop, Fill|");
    EXPECT_EQ(Uses(2), "Target of Shop|");
    EXPECT_EQ(Count("Database Connection"), 4);
}

TEST_F(ConnectionDeleteTest, AConnectionOfAColumnRuleStaysWhileTheRuleUsesIt) {
    AddSource('V', "");
    EXPECT_EQ(Delete(3),
              std::string("False ") + kRefusal + "It has been selected for use in data generation.");
    EXPECT_EQ(Uses(3), "Orders.Customer in Shop, Fill|");
    recorder.yesNoAnswers.assign(8, false);
    AddSource('G', "");
    EXPECT_EQ(Delete(3), std::string("False ") + kQuestion);
    for (const char* key : {"FK DBS Id", "FK TSO Id", "FK TAB Id", "FK COL Id", "FK TTR Id", "Id"}) {
        AddSource('V', key);
        EXPECT_EQ(Delete(3), std::string("False ") + kQuestion) << key;
        EXPECT_EQ(Uses(3), "") << key;
    }
    EXPECT_EQ(Count("Database Connection"), 4);
}

TEST_F(ConnectionDeleteTest, AnUnusedConnectionGoesOnYes) {
    recorder.yesNoAnswers = {false, true};
    EXPECT_EQ(Delete(4), std::string("False ") + kQuestion);
    EXPECT_EQ(Count("Database Connection"), 4);
    EXPECT_EQ(Delete(4), std::string("True ") + kQuestion);
    EXPECT_EQ(Rows("select [Id] from [Database Connection] order by [Id]"), "1\n2\n3");
}

}  // namespace
}  // namespace vellumark
