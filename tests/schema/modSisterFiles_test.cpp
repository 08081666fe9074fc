#include "schema/modSisterFiles.h"

#include "platform/text.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "session.h"

namespace vellumark {
namespace {

const std::string kCaseWeaverHead =
    "skipped\n"
    "CAB Name: BANKING of it\n"
    "\n"
    "skipped\n"
    "Database \"bank db.mdb\"\n"
    "skipped\n"
    "skipped\n";

const std::string kSheetWeaverHead =
    "skipped\n"
    "EAB Name: PRICES\n"
    "skipped\n"
    "skipped\n"
    "Database: \"sheet.mdb\"\n"
    "Style is R\n"
    "Table is PRICE_LIST\n"
    "skipped\n"
    "skipped\n";

class SisterFilesTest : public test::SessionTest {
 protected:
    // A fresh schema with a placeholder Target and a file of those lines.
    std::string Prepare(const std::string& lines) {
        MakeSchema("Sister " + std::to_string(++schemas_), 'T');
        {
            const RepositoryScope repository;
            const int target = NextConnectionId();
            fCreateTargetPlaceholder(target, "Sister");
            RepositoryDatabase.Execute("update [Database] set [FK CON Id Target] = ? where [Id] = ?",
                                       {target, CurrentDBSId});
        }
        return folder.Write("tool/file.txt", platform::Replace(lines, "\n", "\r\n"));
    }

    std::string Columns() {
        return Rows(
            "select [FK TAB Id], [Id], [Sort Order], [Name], [COOLGen Attribute Name], [Flag Identifier], "
            "[Vellumark Data Type], [Vellumark Character Maximum Length], [Vellumark Numeric Precision], "
            "[Vellumark Numeric Scale], [Vellumark Size] from [Column] where [FK DBS Id] = " +
            std::to_string(CurrentDBSId) + " order by [FK TAB Id], [Id]");
    }

    std::string OfSchema(const std::string& sql) {
        return Rows(sql + " where [FK DBS Id] = " + std::to_string(CurrentDBSId));
    }

 private:
    int schemas_ = 0;
};

TEST_F(SisterFilesTest, CaseWeaverFileBecomesTestCaseTables) {
    const std::string path = Prepare(kCaseWeaverHead +
                                     "COL Test_Cases test_case_counter test_case_counter 9 5 0\n"
                                     "COL Test_Cases case_id case_id X 8 0\n"
                                     "COL Test_Cases group_id other_id V 8 0\n"
                                     "\n"
                                     "COL Test_Cases balance balance 9 9 2\n"
                                     "COL Test_Cases (GROUP_VIEW) lines ? 20 0\n"
                                     "COL LINES in at T 6 0\n"
                                     "COL LINES in on D\n"
                                     "COL LINES p p P 20\n"
                                     "COL LINES c c C\n"
                                     "COL LINES e e 8\n");
    ASSERT_TRUE(fReadCaseWeaverFile(path));
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(OfSchema("select [Id], [Name], [COOLGen Entity Name], [Owner] from [Table]"),
              "1|Test Cases|Test_Cases|\n2|Test Cases LINES|LINES|");
    EXPECT_EQ(Columns(),
              "1|1|1|test_case_counter|test_case_counter|0|Double|0|5|0|8\n"
              "1|2|2|CASE_ID|case_id|-1|Character|8|0|0|8\n"
              "1|3|3|GROUP_ID other_id|other_id|0|Character|8|0|0|8\n"
              "1|4|4|BALANCE balance|balance|0|Double|0|9|2|8\n"
              "1|5|5|(GROUP_VIEW) lines|lines|0|Character|20|0|0|20\n"
              "2|1|1|IN at|at|0|Time|0|0|0|8\n"
              "2|2|2|IN on|on|0|Date|0|0|0|8\n"
              "2|3|3|P p|p|0|TimeStamp|0|0|0|8\n"
              "2|4|4|C c|c|0|TimeStamp|0|0|0|8\n"
              "2|5|5|E e|e|0|TimeStamp|0|0|0|8");
    EXPECT_EQ(
        Rows("select distinct [ADO Data Type], [ADO Character Maximum Length], [Flag Optional], [Role], "
             "[FK COL Id] from [Column]"),
        "|0|0|Data|0");
    EXPECT_EQ(Rows("select [COOLGen Model Name], [Sheet Weaver Style] from [Database]"),
              "Case Weaver CAB: BANKING|");
    EXPECT_EQ(Rows("select [Description], [MDB File], [Table] from [Database Connection]"),
              "Sister (Target) - To Be Configured|" + folder.Path("tool/bank db.mdb") + "|");
}

TEST_F(SisterFilesTest, SheetWeaverFileBecomesOneTable) {
    ASSERT_TRUE(fReadSheetWeaverFile(Prepare(kSheetWeaverHead + "COL item item_code X 6 0\n"
                                                                "\n"
                                                                "COL price unit_price 9 7 2\n"
                                                                "COL valid valid_from D\n")));
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(OfSchema("select [Id], [Name], [COOLGen Entity Name] from [Table]"), "1|PRICE_LIST|PRICE_LIST");
    EXPECT_EQ(Columns(),
              "1|1|1|ITEM|item_code|0|Character|6|0|0|6\n"
              "1|2|2|PRICE|unit_price|0|Double|0|7|2|8\n"
              "1|3|3|VALID|valid_from|0|Date|0|0|0|8");
    EXPECT_EQ(Rows("select [COOLGen Model Name], [Sheet Weaver Style] from [Database]"),
              "Sheet Weaver EAB: PRICES|Delimited File Reader");
    EXPECT_EQ(Rows("select [MDB File], [Table] from [Database Connection]"),
              folder.Path("tool/sheet.mdb") + "|PRICE_LIST");
}

TEST_F(SisterFilesTest, HeadAloneMakesNoTable) {
    ASSERT_TRUE(fReadCaseWeaverFile(Prepare(kCaseWeaverHead)));
    EXPECT_EQ(OfSchema("select * from [Table]"), "");
    ASSERT_TRUE(fReadSheetWeaverFile(Prepare(kSheetWeaverHead)));
    EXPECT_EQ(OfSchema("select * from [Table]"), "");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(SisterFilesTest, ScreenShowsTheHead) {
    const auto cab = ReadCaseWeaverHead(Prepare(kCaseWeaverHead + "COL cut"));
    ASSERT_TRUE(cab);
    EXPECT_EQ(cab->modelName + "|" + cab->databaseFile, "Case Weaver CAB: BANKING|bank db.mdb");
    const auto eab = ReadSheetWeaverHead(Prepare(kSheetWeaverHead));
    ASSERT_TRUE(eab);
    EXPECT_EQ(eab->modelName + "|" + eab->databaseFile + "|" + eab->style + "|" + eab->table,
              "Sheet Weaver EAB: PRICES|sheet.mdb|Delimited File Reader|PRICE_LIST");
    EXPECT_EQ(SheetWeaverStyle("G"), "GUI Report");
    EXPECT_EQ(SheetWeaverStyle("Z"), "Z");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_FALSE(ReadCaseWeaverHead("/none/cw.txt"));
    EXPECT_FALSE(ReadSheetWeaverHead("/none/sw.txt"));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Please use Case Weaver to create the file: /none/cw.txt|"
              "exclamation: Please use Sheet Weaver to create the file: /none/sw.txt");
}

TEST_F(SisterFilesTest, BrokenFileIsToldAndChangesNothing) {
    const struct {
        bool sheet;
        std::string lines;
        std::string error;
    } cases[] = {
        {false, "one\n", "62 Input past end of file (file.txt, line 1)"},
        {false, "one\nCAB Name:\n", "9 Subscript out of range (file.txt, line 2)"},
        {false, "one\nCAB Name: A\n\n\nDatabase\n",
         "5 Invalid procedure call or argument (file.txt, line 5)"},
        {false, kCaseWeaverHead + "COL A a b X 8 0\nCOL A c\n",
         "9 Subscript out of range (file.txt, line 9)"},
        {false, kCaseWeaverHead + "COL A a b 9 8\n", "9 Subscript out of range (file.txt, line 8)"},
        {false, kCaseWeaverHead + "COL A a b X eight 0\n", "13 Type mismatch (file.txt, line 8)"},
        {true, kSheetWeaverHead.substr(0, kSheetWeaverHead.size() - 8),
         "62 Input past end of file (file.txt, line 8)"},
        {true, kSheetWeaverHead + "COL item\n", "9 Subscript out of range (file.txt, line 10)"},
    };
    for (const auto& c : cases) {
        const std::string path = Prepare(c.lines);
        EXPECT_FALSE(c.sheet ? fReadSheetWeaverFile(path) : fReadCaseWeaverFile(path));
        EXPECT_EQ(recorder.Take(), std::string("exclamation: Unexpected error occurred reading ") +
                                       (c.sheet ? "Sheet" : "Case") + " Weaver file.\n\nError: " + c.error);
    }
    EXPECT_EQ(Count("Table") + Count("Column"), 0);
    EXPECT_EQ(Count("Database", "[COOLGen Model Name] is not null"), 0);
    EXPECT_EQ(Count("Database Connection", "[MDB File] is not null"), 0);
    EXPECT_FALSE(fReadCaseWeaverFile(folder.Path()));
    EXPECT_EQ(recorder.Take(), "exclamation: Please use Case Weaver to create the file: " + folder.Path());
}

TEST_F(SisterFilesTest, MissingRowsAreTold) {
    const std::string path = Prepare(kCaseWeaverHead);
    {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("delete * from [Database Connection]");
    }
    EXPECT_FALSE(fReadCaseWeaverFile(path));
    CurrentDBSId = 77;
    EXPECT_FALSE(fReadCaseWeaverFile(path));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Cannot open the Database Connnection Target|"
              "exclamation: Cannot open the Database identifier 77");
    EXPECT_EQ(Count("Database", "[COOLGen Model Name] is not null"), 0);
}

}  // namespace
}  // namespace vellumark
