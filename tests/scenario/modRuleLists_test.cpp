#include "scenario/modRuleLists.h"

#include <gtest/gtest.h>

#include "repository/modVellumark.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "session.h"

namespace vellumark {
namespace {

template <class Node>
std::string Texts(const std::vector<Node>& nodes) {
    std::string text;
    for (const Node& node : nodes)
        text += (text.empty() ? "" : ", ") + std::to_string(node.ruleId) + " " + node.text;
    return text;
}

class RuleListsTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Shop");
        first = AddTable("First", {"Id Long Integer", "Note Character", "FirstId Long Integer"});
        second = AddTable("Second", {"Id Long Integer"});
        Change("update [Table] set [COOLGen Entity Name] = 'FIRST ENTITY' where [Id] = 1");
        Change("update [Column] set [COOLGen Attribute Name] = 'NOTED' where [FK TAB Id] = 1 and [Id] = 2");
        Change("update [Column] set [Role] = 'Foreign Key' where [FK TAB Id] = 1 and [Id] = 3");
        Change("update [Column] set [Flag Identifier] = True where [FK TAB Id] = 1 and [Id] = 1");
        CreateSystemScenario();
    }

    void Change(const std::string& sql, const dao::Parameters& parameters = {}) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(sql, parameters);
    }

    void AddSource(int columnId, const char* type, const char* path, int connectionId = 0) {
        Change(
            "update [TSO Insert Column Rule] set [Code Generate Data Type] = 'V' where [FK TSO Id] = ? and "
            "[FK TTR Id] = 1 and [Id] = ?",
            {CurrentTSOId, columnId});
        Change(
            "insert into [Value Source] ([FK DBS Id], [FK TSO Id], [FK TTR Id], [FK TCR Id], [Type], "
            "[Name and Path], [FK CAT Id], [FK CON Id]) values (?, ?, 1, ?, ?, ?, 1, ?)",
            {CurrentDBSId, CurrentTSOId, columnId, type, path, connectionId});
    }

    int first = 0, second = 0;
};

TEST_F(RuleListsTest, DefaultsAreThoseOfTheSelectedTablesAndRulesThoseThatMakeRows) {
    ASSERT_TRUE(CreateScenario("Fill"));
    EXPECT_EQ(Texts(LoadDefaultRuleList()), "1 First (first entity), 2 Second");
    AddTableRule(second, 1, 0, true);
    AddTableRule(first, 3, 9, true);
    AddTableRule(first, 1, 9, false);
    AddTableRule(first, 3, 9, true);
    EXPECT_EQ(Texts(LoadScenarioRuleList()), "1 Second (1), 2 First (3-9), 4 First (3-9)");
    Change("update [TSO Insert Table Rule] set [Sort Order] = -[Sort Order]");
    EXPECT_EQ(Texts(LoadScenarioRuleList()), "4 First (3-9), 2 First (3-9), 1 Second (1)");
    EXPECT_EQ(Texts(LoadDefaultRuleList()), "2 Second, 1 First (first entity)");

    Change("delete * from [resolver Test Scenario Table] where [FK TSO Id] = ? and [FK TAB Id] = ?",
           {CurrentTSOId, second});
    EXPECT_EQ(Texts(LoadDefaultRuleList()), "1 First (first entity)");
    EXPECT_EQ(LoadScenarioRuleList().size(), 3U);
}

TEST_F(RuleListsTest, DeleteScenariosListTheirOwnRules) {
    CurrentScenarioTab = ScenarioTab::Delete;
    ASSERT_TRUE(CreateScenario("Empty"));
    EXPECT_EQ(Texts(LoadDefaultRuleList()), "1 First (first entity), 2 Second");
    AddDeleteTableRule(second, "");
    AddDeleteTableRule(first, "");
    EXPECT_EQ(Texts(LoadDeleteRuleList()), "1 Second, 2 First");
}

TEST_F(RuleListsTest, ColumnsTellTheirSourceAndTheirPart) {
    ASSERT_TRUE(CreateScenario("Fill"));
    AddTableRule(first, 1, 9, true);
    Change(
        "insert into [Database Connection] ([Id], [Description]) values (7, "
        "' MDB: ''other.mdb'' Table: ''T''')");
    AddSource(1, "O", "", 7);
    AddSource(2, "X", "/tmp/prices.xlsx");
    const std::vector<ColumnRuleNode> columns = LoadRuleColumnNodes(1);
    EXPECT_EQ(Texts(columns), "1 Id, 2 Note (noted), 3 FirstId");
    EXPECT_EQ(columns[0].source, "MDB: 'other.mdb' Table: 'T'");
    EXPECT_TRUE(columns[0].identifier);
    EXPECT_EQ(columns[1].source, "Spreadsheet: prices.xlsx");
    EXPECT_FALSE(columns[1].identifier || columns[1].foreignKey);
    EXPECT_TRUE(columns[2].foreignKey);
    EXPECT_EQ(columns[2].source, "");
    // The defaults have none of this, and a source that the rule no longer uses doesn't show.
    EXPECT_EQ(LoadDefaultColumnNodes(1)[1].source, "");
    Change("update [TSO Insert Column Rule] set [Code Generate Data Type] = 'D' where [Id] = 2");
    EXPECT_EQ(LoadRuleColumnNodes(1)[1].source, "");
}

TEST_F(RuleListsTest, UnreadableValuesCostTheCategorysNameAlone) {
    ASSERT_TRUE(CreateScenario("Fill"));
    AddTableRule(first, 1, 9, true);
    AddSource(2, "V", "");
    EXPECT_TRUE(LoadRuleColumnNodes(1)[1].source.starts_with("Category: "));
    ValuesPath = folder.Path("nowhere.mdb");
    EXPECT_EQ(LoadRuleColumnNodes(1)[1].source, "Category:");
}

}  // namespace
}  // namespace vellumark
