#include "tools/modSchemaEditor.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "repository/modVellumark.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "session.h"

namespace vellumark {
namespace {

// A schema of two tables with a System, an Insert and a Delete Scenario.
class SchemaEditorTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Shop");
        parent_ = AddTable("Parent", {"Id Long Integer", "Name Character"});
        child_ = AddTable("Child", {"Id Long Integer", "ParentId Long Integer"});
        RepositoryScope repository;
        RepositoryDatabase.Execute(
            "update [Column] set [Vellumark Size] = 4, [Vellumark Numeric Precision] = 10");
        RepositoryDatabase.Execute("update [Column] set [Vellumark Size] = 20 where [Name] = 'Name'");
        CreateSystemScenario();
        CreateScenario("Empty");
        CurrentScenarioTab = ScenarioTab::Delete;
        CreateScenario("Rows out");
        CurrentScenarioTab = ScenarioTab::Insert;
        CreateScenario("Rows in");
    }

    EditedColumn ColumnNamed(int tableId, const std::string& name) {
        const std::vector<EditedColumn> columns = ListEditedColumns(tableId);
        return *std::ranges::find(columns, name, &EditedColumn::name);
    }
    std::string RulesOf(const std::string& column) {
        return Rows(
            "select [FK TSO Id], [Code Generate Data Type], [Flag Exclude], [Constant Value], [date time "
            "increment] from [TSO Insert Column Rule] where " +
            column + " order by 1");
    }

    int parent_ = 0, child_ = 0;
};

TEST_F(SchemaEditorTest, ANewTableEntersEveryScenario) {
    EditedTable table{0, "Added", "OWN", ""};
    ASSERT_TRUE(fSaveTable(table));
    EXPECT_EQ(table.id, 3);
    EXPECT_EQ(Rows("select [FK TSO Id] from [resolver Test Scenario Table] where [FK TAB Id] = 3 order by 1"),
              "0\n1\n2\n3");
    EXPECT_EQ(
        Rows("select [FK TSO Id], [Id], [Sort Order], [Start Range], [End Range], [Quantity], [Retry Count "
             "Data Unique] from [TSO Insert Table Rule] where [FK TAB Id] = 3 order by 1"),
        "0|3|3|1|100|100|1000\n1|1|1|1|100|100|1000\n3|1|1|1|100|100|1000");
    EXPECT_EQ(
        Rows("select [FK TSO Id], [Id], [Where Clause] from [TSO Delete Table Rule] where [FK TAB Id] = 3 "
             "order by 1"),
        "0|3|\n2|1|");

    EditedColumn column = NewColumn(3);
    column.name = "Born";
    column.dataType = DataType::Date;
    SetTypeDefaults(column);
    ASSERT_TRUE(fSaveColumn(column));
    EXPECT_EQ(RulesOf("[FK TAB Id] = 3"), "0|D|0||D\n1|D|0||D\n3|D|0||D");
    EXPECT_EQ(
        Rows("select [Id], [Sort Order], [Role], [Vellumark Data Type], [Vellumark Size] from [Column] where "
             "[FK TAB Id] = 3"),
        "1|1|Data|Date|8");

    recorder.yesNoAnswers = {false, true};
    EXPECT_FALSE(fDeleteTable(table));
    EXPECT_TRUE(fDeleteTable(table));
    for (const char* rows : {"Table", "Column", "TSO Insert Table Rule", "TSO Insert Column Rule",
                             "TSO Delete Table Rule", "resolver Test Scenario Table"})
        EXPECT_EQ(Count(rows, std::string(rows) == "Table" ? "[Id] = 3" : "[FK TAB Id] = 3"), 0) << rows;
    EXPECT_EQ(
        recorder.Take(),
        "question: Do you really want to delete this table?|question: Do you really want to delete this "
        "table?");
}

TEST_F(SchemaEditorTest, NamesAreNeededAndUnique) {
    EditedTable empty{0, "", "", ""}, again{0, "parent", "", ""};
    EXPECT_FALSE(fSaveTable(empty));
    EXPECT_FALSE(fSaveTable(again));
    EditedColumn column = NewColumn(parent_);
    EXPECT_FALSE(fSaveColumn(column));
    column.name = "NAME";
    EXPECT_FALSE(fSaveColumn(column));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Please enter a Table Name|"
              "exclamation: There is already a table 'parent' in this Database schema.|"
              "exclamation: Please enter a Column Name|"
              "exclamation: There is already a column 'NAME' in this table.");
    EXPECT_EQ(Count("Table"), 2);
    EXPECT_EQ(Count("Column"), 4);
}

TEST_F(SchemaEditorTest, NumbersFollowTheType) {
    using Number = std::optional<int>;
    const struct {
        DataType type;
        Number size, precision, scale;
        const char* message;
    } cases[] = {
        {DataType::Character, 0, {}, {}, "Size must be greater than zero"},
        {DataType::Date, {}, {}, {}, "Size must be greater than zero"},
        {DataType::Blob, 1, {}, {}, ""},
        {DataType::Integer, 2, {}, {}, "Numeric Precision must be greater than zero"},
        {DataType::Integer, 2, 5, {}, ""},
        {DataType::Integer, 2, 6, {}, "Numeric Precision must be less than or equal to 5 for an Integer"},
        {DataType::LongInteger, 4, 10, {}, ""},
        {DataType::LongInteger,
         4,
         11,
         {},
         "Numeric Precision must be less than or equal to 10 for a Long Integer"},
        {DataType::TinyInteger,
         2,
         4,
         {},
         "Numeric Precision must be less than or equal to 3 for a Tiny Integer"},
        {DataType::BigInteger, 4, 0, {}, "Numeric Precision must be greater than zero"},
        {DataType::BigInteger, 4, 19, {}, ""},
        {DataType::Currency, 8, {}, 2, ""},
        {DataType::Currency, 8, {}, {}, "Numeric Precision must be greater than zero if the Scale is zero"},
        {DataType::Double, 8, 15, {}, ""},
        {DataType::Double, 8, 0, -1,
         "Numeric Scale must be greater than zero if the Numeric Precision is zero"},
        {DataType::Variant, 8, 0, 0, "Numeric Precision must be greater than zero if the Scale is zero"},
        {DataType::Variant, 8, 0, -1, ""},
    };
    for (const auto& c : cases) {
        EditedColumn column = NewColumn(parent_);
        column.name = "C";
        column.dataType = c.type;
        column.size = c.size;
        column.precision = c.precision;
        column.scale = c.scale;
        EXPECT_EQ(fCOLValidateError(column), *c.message != '\0') << DataTypeName(c.type);
        EXPECT_EQ(recorder.Take(), *c.message ? std::string("exclamation: ") + c.message : "");
    }
}

TEST_F(SchemaEditorTest, RulesOfAllScenariosFollowAChangedColumn) {
    {
        RepositoryScope repository;
        RepositoryDatabase.Execute(
            "insert into [TSO Insert Column Rule] select * from [TSO Insert Column Rule]");
        RepositoryDatabase.Execute("update [TSO Insert Column Rule] set [FK TSO Id] = 3 where rowid > 4");
        RepositoryDatabase.Execute(
            "update [TSO Insert Column Rule] set [Code Generate Data Type] = 'N', [Constant Value] = 'x'");
    }
    EditedColumn column = ColumnNamed(parent_, "Name");
    column.optional = true;
    ASSERT_TRUE(fSaveColumn(column));
    const std::string ofName = "[FK TAB Id] = 1 and [FK COL Id] = 2";
    EXPECT_EQ(RulesOf(ofName), "0|N|0|x|\n3|N|0|x|");
    column.optional = false;
    ASSERT_TRUE(fSaveColumn(column));
    EXPECT_EQ(RulesOf(ofName), "0|D|0|x|\n3|D|0|x|");
    const struct {
        DataType type;
        const char* rule;
    } steps[] = {
        {DataType::Date, "D|0||D"},
        {DataType::TimeStamp, "D|0||D"},
        {DataType::Time, "D|0||N"},
        {DataType::Blob, "D|-1|Note: Objects will be supported in a future release|N"},
        {DataType::Character, "D|-1||N"},
    };
    for (const auto& step : steps) {
        column.dataType = step.type;
        SetTypeDefaults(column);
        ASSERT_TRUE(fSaveColumn(column));
        EXPECT_EQ(RulesOf(ofName), std::string("0|") + step.rule + "\n3|" + step.rule)
            << DataTypeName(step.type);
    }
    EXPECT_EQ(RulesOf("[FK TAB Id] = 2 and [FK COL Id] = 2"), "0|N|0|x|\n3|N|0|x|");
}

TEST_F(SchemaEditorTest, AForeignKeyIsSetClearedAndLostWithItsParent) {
    const EditedColumn child = ColumnNamed(child_, "ParentId");
    EXPECT_EQ(ListParentColumns(child, child_).size(), 1U);
    EditedColumn parent = ColumnNamed(parent_, "Id");
    EXPECT_FALSE(fSetForeignKey(child, ColumnNamed(parent_, "Name")));
    parent.size = 8;
    EXPECT_FALSE(fSetForeignKey(child, parent));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Selected datatype is not the same as the foreign key's datatype|"
              "exclamation: Selected size is not the same as the foreign key's size");
    {
        RepositoryScope repository;
        RepositoryDatabase.Execute(
            "insert into [resolver TTR dependency] ([FK DBS Id], [FK TSO Id], [FK Child TAB Id], [FK Child "
            "COL "
            "Id], [FK Parent TAB Id], [FK Parent COL Id]) values (1, 3, 2, 2, 1, 2), (1, 3, 1, 2, 2, 2), "
            "(1, 3, 2, 1, 1, 2)");
    }
    parent.size = 4;
    ASSERT_TRUE(fSetForeignKey(child, parent));
    EXPECT_EQ(ColumnNamed(child_, "ParentId").parentTable, "Parent");
    EXPECT_EQ(ColumnNamed(child_, "ParentId").parentColumn, "Id");
    EXPECT_EQ(Count("resolver TTR dependency"), 1);
    ASSERT_TRUE(fClearForeignKey(child));
    EXPECT_EQ(ColumnNamed(child_, "ParentId").role, "Data");

    ASSERT_TRUE(fSetForeignKey(child, parent));
    recorder.yesNoAnswers = {true};
    ASSERT_TRUE(fDeleteColumn(parent));
    EXPECT_EQ(ColumnNamed(child_, "ParentId").role, "Data");
    EXPECT_EQ(Count("TSO Insert Column Rule", "[FK TAB Id] = 1 and [FK COL Id] = 1"), 0);
    EXPECT_EQ(Count("resolver TTR dependency"), 1);
}

}  // namespace
}  // namespace vellumark
