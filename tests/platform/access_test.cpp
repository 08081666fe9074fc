// Microsoft Access files: two that Access made, and written ones for what those don't hold.

#include <gtest/gtest.h>

#include "access_file.h"
#include "platform/ado/connection.h"
#include "platform/dao/database.h"
#include "platform/error.h"
#include "session.h"
#include "test_files.h"

namespace vellumark::dao {
namespace {

using test::AccessField;
using test::AccessFile;
using test::AccessVersion;
using test::Stored;

std::string DataFile(const std::string& name) {
    return test::TestData(name);
}

// "Fruit: Fruit 10/202 50!, Fat 4/3 4; [PrimaryKey] PU Fruit"; "!" marks a required field, "-" one that takes
// no empty text.
std::string Describe(const TableDef& table) {
    std::string text = table.name + ":";
    for (const Field& field : table.fields)
        text += (text.ends_with(':') ? " " : ", ") + field.name + " " + std::to_string(field.type.daoType) +
                "/" + std::to_string(field.type.adoType) + " " + std::to_string(field.type.daoSize) +
                (field.required ? "!" : "") + (field.allowZeroLength ? "" : "-");
    for (const Index& index : table.indexes) {
        text += "; [" + index.name + "] " + (index.primary ? "P" : "") + (index.unique ? "U" : "");
        for (const std::string& field : index.fields)
            text += " " + field;
    }
    return text;
}

std::string Describe(const std::vector<Relation>& relations) {
    std::string text;
    for (const Relation& relation : relations) {
        text += (text.empty() ? "" : "\n") + relation.foreignTable + " -> " + relation.table + ":";
        for (const RelationField& field : relation.fields)
            text += " " + field.foreignName + "=" + field.name;
    }
    return text;
}

// What opening the file and reading all its rows says: "" or the error.
std::string ReadAll(const std::string& path, const std::string& password = "") {
    try {
        const Database database = OpenDatabase(path, ";pwd=" + password);
        database.Relations();
        for (const TableDef& table : database.TableDefs()) {
            const auto rows = database.OpenCursor("select * from [" + table.name + "]");
            while (rows->Next())
                for (std::size_t i = 0; i < rows->FieldNames().size(); ++i)
                    rows->Text(i);
        }
        return "";
    } catch (const platform::Error& error) {
        return error.Line();
    }
}

TEST(AccessTest, FilesThatAccessMade) {
    const Database fruit = OpenDatabase(DataFile("fruit.mdb"));
    std::string tables;
    for (const TableDef& table : fruit.TableDefs())
        if (!table.name.starts_with("MSys"))
            tables += Describe(table) + "\n";
    EXPECT_EQ(tables,
              "Dried: Fruit 10/202 50!-; [PrimaryKey] PU Fruit\n"
              "Fruit: Fruit 10/202 50!-, Fiber 4/3 4, Fat 4/3 4, Protien 4/3 4, Sugar 4/3 4, Vit A 4/3 4, "
              "Vit C 4/3 4, Vit B1 4/3 4, Vit B2 4/3 4, Vit B6 4/3 4, Vit E 4/3 4; [PrimaryKey] PU Fruit; "
              "[Fruit]  Fruit\n"
              "Fruit Salad: Fruit 10/202 50!-; [PrimaryKey] PU Fruit; [IDNum]  Fruit\n"
              "Muffin/Bread: fruit 10/202 50!-; [PrimaryKey] PU fruit\n"
              "Veggie Salad: fruit 10/202 50!-; [PrimaryKey] PU fruit\n");
    EXPECT_EQ(Describe(fruit.Relations()),
              "Dried -> Fruit: Fruit=Fruit\nFruit Salad -> Fruit: Fruit=Fruit\n"
              "Muffin/Bread -> Fruit: fruit=Fruit\nVeggie Salad -> Fruit: fruit=Fruit");
    EXPECT_EQ(test::RowsOf(fruit,
                           "select a.Fruit, a.[Vit C], (select count(*) from Fruit), (select count(*) from "
                           "[Fruit Salad]) from Fruit a, Dried b where a.Fruit = b.Fruit and a.Fruit like "
                           "'ap%' and a.[Vit A] > 10 order by 1"),
              "Apricot|5|37|18");
    EXPECT_EQ(
        test::RowsOf(fruit, "select [DateCreate] from [MSysObjects] where [Name] = 'FRUIT' and [Type] = 1"),
        "2006-04-27 15:04:23");
    EXPECT_EQ(ReadAll(DataFile("fruit.mdb")), "");
    EXPECT_EQ(OpenDatabase(DataFile("soci_test.mdb")).TableNames(),
              (std::vector<std::string>{"MSysACEs", "MSysObjects", "MSysQueries", "MSysRelationships"}));
    EXPECT_EQ(ReadAll(DataFile("soci_test.mdb")), "");
}

class AccessVersionTest : public ::testing::TestWithParam<AccessVersion> {
 protected:
    bool IsJet3() const { return GetParam() == AccessVersion::Access97; }
    std::string Rows(const std::string& sql) { return test::RowsOf(OpenDatabase(path), sql); }
    std::string Save(AccessFile& written) { return path = written.Save(folder.Path("made.mdb")); }

    test::TempFolder folder;
    AccessFile file{GetParam()};
    std::string path;
};

INSTANTIATE_TEST_SUITE_P(Versions, AccessVersionTest,
                         ::testing::Values(AccessVersion::Access97, AccessVersion::Access2000,
                                           AccessVersion::Access2007));

std::string Numeric(bool negative, std::uint32_t high, std::uint64_t low) {
    return std::string(1, negative ? '\x80' : '\0') + Stored(std::uint32_t{0}) + Stored(high) +
           Stored(static_cast<std::uint32_t>(low >> 32)) + Stored(static_cast<std::uint32_t>(low));
}

TEST_P(AccessVersionTest, EveryTypeHasItsNumbersAndText) {
    using LongValue = AccessFile::LongValue;
    const int wide = IsJet3() ? 1 : 2;
    const std::string big(7000, 'm');
    using Values = std::vector<std::pair<AccessField, std::string>>;
    struct Case {
        test::AccessColumn column;
        std::string type;
        Values values;
    };
    std::vector<Case> cases;
    const auto add = [&](const test::AccessColumn& column, const std::string& type, const Values& values) {
        cases.push_back({column, type, values});
    };
    add({"Yes", 1}, "1/11 1", {{"", "-1"}, {std::nullopt, "0"}});
    add({"Byte", 2}, "2/17 1", {{"\xFF", "255"}});
    add({"Short", 3}, "3/2 2", {{Stored(std::int16_t{-2}), "-2"}});
    add({"Auto", 4}, "4/3 4", {{Stored(std::int32_t{-2147483647}), "-2147483647"}});
    add({"Money", 5}, "5/6 8",
        {{Stored(std::int64_t{-12500}), "-1.25"},
         {Stored(INT64_MIN), "-922337203685477.5808"},
         {Stored(std::int64_t{70000}), "7"}});
    add({"Single", 6}, "6/4 4", {{Stored(0.1F), "0.1"}});
    add({"Double", 7}, "7/5 8", {{Stored(1e-3), "0.001"}});
    add({"Date", 8}, "8/135 8",
        {{Stored(36925.17), "2001-02-03 04:04:48"},
         {Stored(-1.25), "1899-12-29 06:00:00"},
         {Stored(0.999999999), "1899-12-31 00:00:00"},
         {Stored(2958465.99), "9999-12-31 23:45:36"},
         {Stored(1e300), "1E+300"}});
    add({"Bin", 9, 20}, "9/128 20", {{std::string("a\0b", 3), std::string("a\0b", 3)}});
    add({"Text", 10, 30 * wide, true}, IsJet3() ? "10/200 30!" : "10/202 30!",
        {{file.Text("a 'b'"), "a 'b'"}, {"", ""}, {std::nullopt, "null"}});
    add({"Obj", 11}, "11/205 0", {{file.Long(big, LongValue::Chain), big}});
    add({"Memo", 12, 0, false, false}, IsJet3() ? "12/201 0-" : "12/203 0-",
        {{file.Long(file.Text("in row"), LongValue::InRow), "in row"},
         {file.Long(file.Text("one row"), LongValue::OneRow), "one row"},
         {file.Long(file.Text(big), LongValue::Chain), big}});
    add({"Guid", 15}, "15/72 16",
        {{"\x33\x22\x11\x01\x55\x44\x77\x66\x88\x99\xAA\xBB\xCC\xDD\xEE\xFF",
          "{01112233-4455-6677-8899-AABBCCDDEEFF}"}});
    if (!IsJet3()) {
        add({"Dec", 16, 0, false, true, 28, 2}, "20/131 16",
            {{Numeric(false, 0, 1000), "10"},
             {Numeric(true, 0, 105), "-1.05"},
             {Numeric(false, 1, 5), "184467440737095516.21"},
             {Numeric(true, 0, 0), "0"}});
        add({"Big", 19}, "16/20 8", {{Stored(INT64_MIN), "-9223372036854775808"}});
    }
    test::AccessTable table{"Types"};
    std::string types = "Types:";
    for (const Case& c : cases) {
        table.columns.push_back(c.column);
        types += (types.ends_with(':') ? " " : ", ") + c.column.name + " " + c.type;
    }
    file.AddTable(table);
    for (std::size_t row = 0; row < 5; ++row) {
        std::vector<AccessField> fields;
        for (const Case& c : cases)
            fields.push_back(row < c.values.size() ? c.values[row].first : std::nullopt);
        file.AddRow(fields);
    }
    const Database database = OpenDatabase(Save(file));
    EXPECT_EQ(Describe(database.TableDefinition("TYPES")), types);
    Recordset rows = database.OpenRecordset("Types");
    for (std::size_t row = 0; row < 5; ++row, rows.MoveNext())
        for (const Case& c : cases) {
            const bool isNull = rows.IsNull(c.column.name);
            if (row < c.values.size())
                EXPECT_EQ(isNull ? "null" : rows.Text(c.column.name), c.values[row].second) << c.column.name;
            else
                EXPECT_EQ(isNull, c.column.name != "Yes") << c.column.name;
        }
    EXPECT_EQ(test::RowsOf(database, "select count(*) from Types where Money < 0 and Text = \"A 'B'\""), "1");
}

TEST_P(AccessVersionTest, KeysOfSeveralColumnsAndOfTheSameTable) {
    const test::AccessColumn note{"Note", 10, IsJet3() ? 20 : 40};
    // The description in front belongs to a relationship, so numbers of indexes and of descriptions differ.
    file.AddTable(
        {"Order Line",
         {{"", 10, 20}, {"Id", 4}, {"Line", 3}, {"Before", 3}, note},
         {{{1, 3}, false}, {{2, 1}, true}, {{4}, true}, {{1}, false}},
         {{"OrderLineLine", 2, 0}, {"ByNote", 0, 2}, {"Key", 1, 1}, {"Other", 2, 1}, {"Id", 0, 3}}});
    file.AddTable({"Order", {{"Id", 4}}, {{{0}, true}}, {{"PrimaryKey", 1, 0}}});
    file.AddRelation({"OrderLineLine", "Order Line", "Order Line", {{"Id", "Id"}, {"Line", "Before"}}});
    file.AddRelation({"Orders", "Order", "Order Line", {{"Id", "Id"}}});
    const Database database = OpenDatabase(Save(file));
    const std::string text = IsJet3() ? "10/200 20" : "10/202 20";
    EXPECT_EQ(Describe(database.TableDefinition("Order Line")),
              "Order Line: Id 4/3 4!, Line 3/2 2!, Before 3/2 2, Note " + text +
                  "; [Key] PU Line Id; [ByNote] U Note; [Id]  Id");
    EXPECT_TRUE(database.ServerName().starts_with(IsJet3() ? "Microsoft Access 97" : "Microsoft Access 20"));
    EXPECT_EQ(Describe(database.Relations()),
              "Order Line -> Order Line: Id=Id Before=Line\nOrder Line -> Order: Id=Id");
    ado::Connection connection;
    connection.Open("driver={Microsoft Access Driver (*.mdb)};DBQ=" + path);
    ado::Rowset tables = connection.OpenSchema(ado::SchemaKey::Tables);
    std::string names;
    for (; !tables.IsEOF(); tables.MoveNext())
        names += tables.Text("TABLE_NAME") + "=" + tables.Text("TABLE_TYPE") + ";";
    EXPECT_EQ(names, "MSysObjects=SYSTEM TABLE;MSysRelationships=SYSTEM TABLE;Order=TABLE;Order Line=TABLE;");
}

TEST_P(AccessVersionTest, RowsInEveryState) {
    using Row = AccessFile::Row;
    const std::string filler(IsJet3() ? 200 : 400, 'f');
    file.AddTable({"T", {{"A", 4}, {"", 4}, {"B", 10, 510}, {"C", 12}, {"D", 3}, {"E", 1}, {"F", 10, 510}}});
    const auto add = [&](int number, std::size_t columns, Row kind = Row::Plain) {
        std::vector<AccessField> fields = {Stored(number),
                                           std::nullopt,
                                           file.Text("b" + std::to_string(number)),
                                           file.Long(filler, AccessFile::LongValue::InRow),
                                           Stored(std::int16_t{7}),
                                           "",
                                           file.Text("f")};
        fields.resize(columns);
        file.AddRow(fields, kind);
    };
    add(1, 7);
    add(2, 7, Row::Deleted);
    add(3, 7, Row::Moved);
    add(4, 4);  // written before the columns D, E and F were there
    add(5, 3);
    for (int number = 6; number < 300; ++number)
        add(number, 7);
    Save(file);
    EXPECT_EQ(Rows("select A, B, length(C), D, E, F from T where A < 6"),
              IsJet3() ? "1|b1|200|7|-1|f\n3|b3|200|7|-1|f\n4|b4|200||0|\n5|b5|||0|"
                       : "1|b1|200|7|-1|f\n3|b3|200|7|-1|f\n4|b4|200||0|\n5|b5|||0|");
    EXPECT_EQ(Rows("select count(*), sum(A), count(distinct rowid) from T"), "298|44848|298");
    EXPECT_EQ(Rows("select count(*) from T x, T y where x.A = y.A + 1"), "296");
}

TEST_P(AccessVersionTest, DefinitionsAndListsOnSeveralPages) {
    test::AccessTable table{"Wide"};
    for (int i = 0; i < 200; ++i)
        table.columns.push_back({"A column with a long name " + std::to_string(i), 4});
    table.mapOnPages = true;
    file.AddTable(table);
    for (int row = 0; row < 40; ++row)
        file.AddRow(std::vector<AccessField>(200, Stored(row)));
    file.AddTable({"Hidden", {{"A", 4}}, {}, {}, false, 0x80000002U});
    file.AddTable({"~TMPCLP1", {{"A", 4}}});
    Save(file);
    EXPECT_EQ(Rows("select count(*), sum([A column with a long name 199]) from Wide"), "40|780");
    EXPECT_EQ(OpenDatabase(path).TableNames(),
              (std::vector<std::string>{"MSysObjects", "MSysRelationships", "Wide"}));
}

TEST_P(AccessVersionTest, PasswordsAndKeys) {
    const std::string invalid = "Error: 3031 Not a valid password.";
    AccessFile locked(GetParam(), "Secret");
    EXPECT_EQ(ReadAll(Save(locked)), invalid);
    EXPECT_EQ(ReadAll(path, "secret"), invalid);
    EXPECT_EQ(ReadAll(path, "Secret"), "");
    AccessFile encoded(GetParam(), "", 0x1234ABCD);
    const std::string outcome = ReadAll(Save(encoded));
    if (GetParam() == AccessVersion::Access2007)
        EXPECT_EQ(outcome, "Error: 3343 '" + path +
                               "' is encrypted. Vellumark can't read encrypted Microsoft "
                               "Access files; please decrypt a copy of it in Access.");
    else
        EXPECT_EQ(outcome, "");
}

TEST(AccessTest, PackedTextAndCharactersOfTwoUnits) {
    const test::TempFolder folder;
    AccessFile file(AccessVersion::Access2000);
    file.AddTable({"T", {{"A", 10, 510}}});
    for (const std::string& stored :
         {std::string("\xFF\xFEGr\xFC\xDF"),
          std::string("\xFF\xFE"
                      "A\0\xAC\x20\0B",
                      8),
          std::string("\x3D\xD8\x00\xDE", 4), std::string("\x3D\xD8X\0", 4), std::string("\xFF\xFE")})
        file.AddRow({stored});
    EXPECT_EQ(test::RowsOf(OpenDatabase(file.Save(folder.Path("a.mdb"))), "select A from T"),
              "Grüß\nA€B\n😀\n\xEF\xBF\xBDX\n");
    AccessFile old(AccessVersion::Access97);
    old.AddTable({"T", {{"A", 10, 255}}});
    old.AddRow({std::string("Gr\xFC\xDF \x80")});
    EXPECT_EQ(test::RowsOf(OpenDatabase(old.Save(folder.Path("b.mdb"))), "select A from T"), "Grüß €");
}

TEST(AccessTest, NothingIsEverWritten) {
    const test::TempFolder folder;
    const std::string before = test::ReadFile(DataFile("fruit.mdb"));
    const std::string path = folder.Write("fruit.mdb", before);
    const Database database = OpenDatabase(path);
    const auto isRefused = [](const auto& work) {
        try {
            work();
            return false;
        } catch (const platform::Error& error) {
            return error.Line().starts_with("Error: 3027 ") &&
                   error.Line().ends_with(
                       " is a Microsoft Access file; Vellumark reads such files but doesn't write them.");
        }
    };
    for (const char* sql :
         {"insert into Fruit (Fruit) values (\"Fig\")", "update Fruit set Fat = 1", "delete * from Fruit",
          "create table T (A)", "drop table Fruit", "alter table Fruit add column X TEXT", "vacuum",
          "attach 'x' as y", "create index I on Fruit (Fat)"}) {
        EXPECT_TRUE(isRefused([&] { database.Execute(sql); })) << sql;
        ado::Connection connection;
        connection.Open("driver={Microsoft Access Driver (*.mdb)};DBQ=" + path);
        EXPECT_TRUE(isRefused([&] { connection.Execute(sql); })) << sql;
    }
    EXPECT_TRUE(isRefused([&] { database.DropTable("Fruit"); }));
    EXPECT_TRUE(isRefused([&] { database.CheckWritable(); }));
    Recordset rows = database.OpenRecordset("Fruit");
    rows.Edit();
    rows.Set("Fat", 1);
    EXPECT_TRUE(isRefused([&] { rows.Update(); }));
    EXPECT_EQ(test::RowsOf(database, "select count(*), max(Fat) from Fruit"), "37|14");
    EXPECT_EQ(test::ReadFile(path), before);
}

TEST(AccessTest, DamagedFilesSayWhatIsWrong) {
    const test::TempFolder folder;
    const std::string good = test::ReadFile(DataFile("fruit.mdb"));
    const std::string path = folder.Path("bad.mdb");
    const std::string damaged = "Error: 3343 The Microsoft Access file is damaged or incomplete: ";
    const auto changed = [&](std::size_t at, const std::string& bytes) {
        return std::string(good).replace(at, bytes.size(), bytes);
    };
    const std::size_t page = 4096;
    const struct {
        std::string content, outcome;
    } cases[] = {
        {"", "Error: 3343 Unrecognized database format '" + path + "'. The file is empty."},
        {good.substr(0, 10), "Error: 3343 Unrecognized database format '" + path + "'."},
        {good.substr(0, 20), damaged + "its first page is cut off."},
        {good.substr(0, 3000), damaged + "its first page is cut off."},
        {good.substr(0, page), damaged + "page 2 is missing."},
        {good.substr(0, 100 * page + 1), damaged + "its end is cut off."},
        {good.substr(0, 120 * page), damaged + "page 139 is missing."},
        {changed(0x14, "\x20"),
         "Error: 3343 '" + path + "' was made by a version of Microsoft Access that Vellumark can't read."},
        {changed(2 * page, std::string(page, '\0')), damaged + "its catalog is not where it should be."},
        {changed(24 * page, "\1"), damaged + "page 24 holds no table definition."},
        {changed(24 * page + 45, "\xFF\xFF"), damaged + "a table definition counts too much."},
        {changed(24 * page + 8, "\xFF\xFF"), damaged + "a table definition is cut off."},
        {changed(25 * page, std::string(page, '\0')), damaged + "page 25 holds no rows."},
    };
    for (const auto& c : cases) {
        folder.Write("bad.mdb", c.content);
        EXPECT_EQ(ReadAll(path), c.outcome);
    }
}

// Whatever is lost or changed, reading ends by itself, with all rows or with an error that says so.
TEST(AccessTest, DamageAnywhereNeverBreaksTheProgram) {
    const test::TempFolder folder;
    const std::string path = folder.Path("bad.mdb");
    unsigned seed = 1;
    const auto random = [&](std::size_t below) {
        seed = seed * 1103515245U + 12345U;
        return static_cast<std::size_t>(seed >> 8) % below;
    };
    for (const char* name : {"fruit.mdb", "soci_test.mdb"}) {
        const std::string good = test::ReadFile(DataFile(name));
        for (int round = 0; round < 300; ++round) {
            std::string bad = good;
            if (round % 3 == 0)
                bad.resize(random(good.size()));
            else if (round % 3 == 1)
                bad.replace(random(good.size() / 4096) * 4096, 4096, 4096, '\0');
            else
                for (std::size_t change = random(20); change-- > 0;)
                    bad[random(good.size() / 64) * 64 + random(64)] = static_cast<char>(random(256));
            folder.Write("bad.mdb", bad);
            const std::string outcome = ReadAll(path);
            EXPECT_TRUE(outcome.empty() || outcome.starts_with("Error: 3343 ") ||
                        outcome.starts_with("Error: 3031 "))
                << name << " " << round << ": " << outcome;
        }
    }
}

}  // namespace
}  // namespace vellumark::dao
