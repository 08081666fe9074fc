#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "platform/dao/database.h"
#include "platform/dao/jet_sql.h"
#include "platform/error.h"
#include "temp_folder.h"

namespace vellumark::dao {
namespace {

using platform::Error;

template <typename Action>
int ErrorNumberOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(JetSql, BecomesSqlite) {
    const struct {
        std::string_view jet, sqlite;
    } cases[] = {
        {"delete * from [T]", "delete  from [T]"},
        {"delete  * from [T] where a * 2 = 4", "delete   from [T] where a * 2 = 4"},
        {"select * from T where n = \"it's\"", "select * from T where n = 'it''s'"},
        {"select 'a \"b\"'", "select 'a \"b\"'"},
        {"where x = \"a\"\"b\"", "where x = 'a\"b'"},
        {"where f = True and g = FALSE", "where f = -1 and g = 0"},
        {"where [True] = 1 and trueish = 2", "where [True] = 1 and trueish = 2"},
        {"where n like \"x*_?\"", "where n like 'x%__'"},
        {"where n = \"x*\"", "where n = 'x*'"},
        {"where d = #2001-02-03#", "where d = '2001-02-03'"},
        {"where d = #it's#", "where d = 'it''s'"},
        {"where n = \"open", "where n = 'open"},
        {"-- it's #1, \"true\"\nselect \"a\"", "-- it's #1, \"true\"\nselect 'a'"},
        {"delete /* don't */ * from T -- it's", "delete /* don't */  from T -- it's"},
        {"select 4/2-1, '--', \"/*\" /* open'", "select 4/2-1, '--', '/*' /* open'"},
        {"where n = \"it's''", "where n = 'it''s''''"},
        {"where n = 'open''", "where n = 'open''"},
        {"where n = \"a\"'b'#c#", "where n = 'a' 'b' 'c'"},
        {"where n = 1-True", "where n = 1- -1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(TranslateJetSql(c.jet), c.sqlite);
}

class DaoTest : public ::testing::Test {
 protected:
    DaoTest() {
        CreateDatabase(path);
        database = OpenDatabase(path);
    }

    void Run(std::string_view sql) { database.Prepare(sql).Execute(); }

    test::TempFolder folder;
    std::string path = folder.Path("x.mdb");
    Database database;
};

TEST_F(DaoTest, RecordsetAddsEditsAndDeletes) {
    Run("create table [A b] (Id LONG, [Name] TEXT(10) collate nocase, Flag YESNO)");
    Recordset rows = database.OpenForAppend("a B");
    rows.AddNew();
    rows.Set("id", 1).Set("NAME", "one \" quote").Set("Flag", true);
    rows.Update();
    rows.AddNew();
    rows.Set("Id", 2).Set("Name", "zwei");
    rows.Update();

    Recordset found =
        database.OpenRecordset("select * from [A b] where [Name] = ? order by Id", {"ONE \" QUOTE"});
    ASSERT_EQ(found.RecordCount(), 1);
    EXPECT_TRUE(found.Boolean("Flag"));
    EXPECT_EQ(ToText(database.Lookup("select Flag from [A b] where Id = 1")), "-1");

    Recordset all = database.OpenRecordset("A b");
    ASSERT_TRUE(all.FindFirst("Name", "ZWEI"));
    EXPECT_TRUE(all.IsNull("Flag"));
    all.Edit();
    all.Set("Name", "two").Set("Name", "three");
    all.Update();
    EXPECT_EQ(all.Text("Name"), "three");
    all.MoveFirst();
    all.Delete();
    EXPECT_EQ(ToText(database.Lookup("select group_concat([Name]) from [A b]")), "three");
}

TEST_F(DaoTest, RecordsetRefusesWhatItCannotDo) {
    Run("create table T (Id LONG)");
    Run("create table U (Id LONG)");
    Recordset empty = database.OpenRecordset("T");
    EXPECT_EQ(ErrorNumberOf([&] { empty.Long("Id"); }), platform::kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { empty.AddNew(), empty.Set("Idd", 1); }), platform::kNoSuchItem);
    EXPECT_EQ(ErrorNumberOf([&] { database.OpenRecordset("select * from V"); }), platform::kNoSuchTable);
    EXPECT_EQ(ErrorNumberOf([&] { database.OpenRecordset("select * frm T"); }), platform::kSyntaxError);
    Run("insert into T values (7000000000)");
    Run("insert into U values (1)");
    Recordset joined = database.OpenRecordset("select * from [T], [U]");
    joined.Edit();
    joined.Set("Id", 2);
    EXPECT_EQ(ErrorNumberOf([&] { joined.Update(); }), platform::kReadOnlyDatabase);
    EXPECT_EQ(ErrorNumberOf([&] { database.OpenRecordset("T").Long("Id"); }), platform::kOverflow);
}

TEST_F(DaoTest, TransactionsNestAndRollBack) {
    Run("create table T (Id LONG)");
    {
        Transaction outer(database);
        Run("insert into T values (1)");
        {
            Transaction lost(database);
            Run("insert into T values (2)");
        }
        Transaction kept(database);
        Run("insert into T values (3)");
        kept.Commit();
        outer.Commit();
    }
    {
        Transaction lost(database);
        Run("insert into T values (4)");
    }
    EXPECT_EQ(ToText(database.Lookup("select group_concat(Id) from T")), "1,3");
}

TEST_F(DaoTest, OpenTellsWhyItFails) {
    const std::string locked = folder.Path("locked.mdb");
    CreateDatabase(locked, "quillfern");
    const std::string text = folder.Path("text.mdb");
    std::ofstream(text) << std::string(4096, 'x');
    EXPECT_EQ(ErrorNumberOf([&] { OpenDatabase(folder.Path("none.mdb")); }), platform::kFileCannotBeFound);
    EXPECT_EQ(ErrorNumberOf([&] { OpenDatabase(text); }), platform::kUnrecognizedFormat);
    EXPECT_EQ(ErrorNumberOf([&] { OpenDatabase(locked, ";pwd=wrong"); }), platform::kNotAValidPassword);
    EXPECT_TRUE(OpenDatabase(locked, ";pwd=quillfern").IsOpen());
    EXPECT_TRUE(OpenDatabase(path, ";pwd=any").IsOpen());
    EXPECT_FALSE(std::filesystem::exists(folder.Path("none.mdb")));
}

TEST_F(DaoTest, DefinitionsTellColumnsKeysAndRelations) {
    Run("create table Parent (a INTEGER, b TEXT, primary key (b, a))");
    Run("create table [Child table] (id INTEGER primary key, pa INTEGER, pb TEXT not null, up INTEGER, "
        "twice INTEGER generated always as (id * 2), u TEXT unique, "
        "foreign key (pb, pa) references Parent, foreign key (up) references [Child table] (id))");
    Run("create unique index partial_one on [Child table] (pa) where pa > 3");
    Run("create unique index expression_one on [Child table] (lower(pb))");
    Run("create view V as select * from Parent");

    EXPECT_EQ(database.TableNames(), (std::vector<std::string>{"MSysProperties", "Parent", "Child table"}));
    const TableDef child = database.TableDefinition("CHILD TABLE");
    std::string fields, indexes, relations;
    for (const Field& field : child.fields)
        fields += field.name + (field.required ? "! " : " ");
    for (const Index& index : child.indexes)
        indexes += (index.primary ? "primary " : index.unique ? "unique " : "") + index.fields.front() + ";";
    for (const Relation& relation : database.Relations()) {
        relations += relation.foreignTable + ">" + relation.table + ":";
        for (const RelationField& field : relation.fields)
            relations += field.foreignName + "=" + field.name + ";";
    }
    EXPECT_EQ(fields, "id! pa pb! up u ");
    EXPECT_EQ(indexes, "primary id;unique u;");
    EXPECT_EQ(relations, "Child table>Parent:pb=b;pa=a;Child table>Child table:up=id;");
    EXPECT_EQ(ErrorNumberOf([&] { database.TableDefinition("V"); }), platform::kNoSuchItem);
}

TEST(DeclaredType, ReadsCommonWords) {
    const struct {
        std::string_view declared;
        int dao, size, ado, length, precision, scale;  // -1 for Null
    } cases[] = {
        {"integer", 4, 4, 3, -1, 10, -1},          {"NVARCHAR(160)", 10, 160, 202, 160, -1, -1},
        {"varchar", 10, 255, 200, 255, -1, -1},    {"TEXT(20)", 10, 20, 200, 20, -1, -1},
        {"Text", 12, 0, 201, 1073741823, -1, -1},  {"NUMERIC(10, 2)", 19, 16, 131, -1, 10, 2},
        {"decimal", 19, 16, 131, -1, -1, -1},      {"double  precision", 7, 8, 5, -1, 15, -1},
        {"UNSIGNED BIG INT", 4, 4, 3, -1, 10, -1}, {"VARYING CHARACTER(9)", 10, 9, 200, 9, -1, -1},
        {"STRING", 19, 16, 131, -1, -1, -1},       {"", 11, 0, 205, -1, -1, -1},
        {"CHAR(0)", 18, 255, 129, 255, -1, -1},
    };
    for (const auto& c : cases) {
        const ColumnType type = ReadDeclaredType(c.declared);
        EXPECT_EQ(type.daoType, c.dao) << c.declared;
        EXPECT_EQ(type.daoSize, c.size) << c.declared;
        EXPECT_EQ(type.adoType, c.ado) << c.declared;
        EXPECT_EQ(type.maximumLength.value_or(-1), c.length) << c.declared;
        EXPECT_EQ(type.precision.value_or(-1), c.precision) << c.declared;
        EXPECT_EQ(type.scale.value_or(-1), c.scale) << c.declared;
    }
}

}  // namespace
}  // namespace vellumark::dao
