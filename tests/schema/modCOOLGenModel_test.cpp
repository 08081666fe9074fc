#include "schema/modCOOLGenModel.h"

#include <dlfcn.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <sqlite3.h>

#include "model_files.h"
#include "repository/modVellumark.h"
#include "schema/modCOOLGenExtract.h"
#include "schema/modCOOLGenFiles.h"
#include "session.h"

namespace vellumark {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class COOLGenModelTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        MakeSchema("Shop", 'C');
    }

    bool ReadFiles(const test::ModelFiles& files, const std::string& dbms = "Oracle") {
        files.WriteTo(folder, "databases/Shop.dbs");
        return fReadCOOLGenModel({.dbmsName = dbms}, true);
    }

    std::string Columns() {
        return Rows(
            "select [FK TAB Id], [Id], [Sort Order], [Name], [COOLGen Attribute Name], [Role], [FK COL TAB "
            "Id], [FK COL Id], [Flag Identifier], [Flag Optional] from [Column] order by [FK TAB Id], [Id]");
    }

    std::vector<std::string> FilesInSchema() {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(CurrentDBSFolder))
            names.push_back(entry.path().filename().string());
        return names;
    }
};

TEST(COOLGen, EverySystemHasItsCode) {
    std::vector<std::string_view> codes;
    for (const std::string_view name : kCOOLGenDBMSNames)
        codes.push_back(fDBMSCode(name));
    EXPECT_THAT(codes, ElementsAre("MVS_DB2", "NTUNIX_DB2", "INFORMIX", "INGRES", "MSSQL", "NONSTOP", "ODBC",
                                   "ORACLE", "RDB", "SYBASE", "XDB"));
    EXPECT_EQ(fDBMSCode("Paradox"), "");
}

TEST_F(COOLGenModelTest, ReadsTheLinesOfItsSystem) {
    ASSERT_TRUE(ReadFiles({}));
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_THAT(recorder.statuses,
                ElementsAre("Processing tables", "Processing columns", "Processing foreign keys"));
    EXPECT_EQ(Rows("select [COOLGen Model Name] from [Database]"), "SHOP MODEL");
    EXPECT_EQ(Rows("select [Id], [Name], [COOLGen Entity Name], [Owner] from [Table]"),
              "1|CUSTOMER|Customer|\n2|ORDERS|Order|\n3|STATUS|Status|");
    EXPECT_EQ(Columns(),
              "1|1|1|CUST_ID|Id|Data|0|0|-1|0\n"
              "1|2|2|SEX|Sex|Data|0|0|0|-1\n"
              "1|3|3|BORN|Born|Data|0|0|0|-1\n"
              "2|1|1|ORDER_ID|Id|Data|0|0|-1|0\n"
              "2|2|2|FK_CUST_ID||Foreign Key|1|1|0|0\n"
              "2|3|3|STATUS_CODE||Foreign Key|3|1|0|-1\n"
              "3|1|1|CODE|Code|Data|0|0|-1|0");
}

TEST_F(COOLGenModelTest, OtherSystemsOfTheSameFilesAreOtherSchemas) {
    ASSERT_TRUE(ReadFiles({}, "MS/SQL"));
    EXPECT_EQ(Rows("select [Name] from [Table]"), "CUST");
    EXPECT_EQ(Columns(), "1|1|1|ID|Id|Data|0|0|-1|0");
}

TEST_F(COOLGenModelTest, FormatCodesBecomeDataTypes) {
    test::ModelFiles files;
    files.columns.clear();
    for (const char code : std::string("XVMLZFPISTQDGU"))
        files.columns += std::string("[ORACLE],STATUS,C") + code + ",A," + code + ",12,3,,,,,,M\n";
    ASSERT_TRUE(ReadFiles(files));
    EXPECT_EQ(Rows("select [Name], [Vellumark Data Type], [Vellumark Character Maximum Length], [Vellumark "
                   "Numeric Precision], [Vellumark Numeric Scale], [Vellumark Size], [ADO Data Type], [ADO "
                   "Numeric Precision] from [Column] order by [Id]"),
              "CX|Character|12|0|0|12||0\nCV|Character|12|0|0|12||0\nCM|Character|12|0|0|12||0\n"
              "CL|Character|12|0|0|12||0\nCZ|Character|12|0|0|12||0\n"
              "CF|Double|0|12|3|8||0\nCP|Double|0|12|3|8||0\n"
              "CI|Long Integer|0|12|3|12||0\nCS|Integer|0|12|3|12||0\n"
              "CT|Time|0|0|0|8||0\nCQ|TimeStamp|0|0|0|8||0\nCD|Date|0|0|0|8||0\n"
              "CG|Blob|0|0|0|12||0\nCU|Blob|0|0|0|12||0");
}

TEST_F(COOLGenModelTest, ForeignKeysFollowChainsAndNeedAnAttribute) {
    test::ModelFiles files;
    files.columns =
        "[ORACLE],CUSTOMER,ID,Id,I,8,0,,Y,,,,M\n"
        "[ORACLE],ORDERS,FK_ID,Id,I,8,0,,xYx,Customer,Id,,M\n"
        "[ORACLE],STATUS,FK_ID,Whose,I,8,0,,,Order,Id,,M\n"
        "[ORACLE],STATUS,FREE,Free,I,8,0,,,Order,,,M\n"
        "[ORACLE],CUSTOMER,LATE,Late,I,8,0,,,Status,Whose,,M\n";
    ASSERT_TRUE(ReadFiles(files));
    EXPECT_EQ(Columns(),
              "1|1|1|ID|Id|Data|0|0|-1|0\n"
              "1|2|2|LATE||Foreign Key|3|1|0|0\n"
              "2|1|1|FK_ID||Foreign Key|1|1|-1|0\n"
              "3|1|1|FK_ID||Foreign Key|2|1|0|0\n"
              "3|2|2|FREE|Free|Data|0|0|0|0");
}

TEST_F(COOLGenModelTest, BrokenFilesAddNoRowAndStay) {
    const std::string wholeColumn = "[ORACLE],STATUS,CODE,Code,S,2,0,,Y,,,,M\n";
    const struct {
        std::string test::ModelFiles::*file;
        std::string lines;
        std::string error;
    } cases[] = {
        {&test::ModelFiles::tables, "[ORACLE],CUSTOMER,Customer\n[ORACLE],ORD",
         "9 Subscript out of range (table.txt, line 6)"},
        {&test::ModelFiles::columns, wholeColumn + "[ORACLE],STATUS,NAME,Name,X,1,0,,,Cust",
         "9 Subscript out of range (column.txt, line 6)"},
        {&test::ModelFiles::columns, "[ORACLE],STATUS,CODE,Code,S,two,0,,Y,,,,M\n",
         "13 Type mismatch (column.txt, line 5)"},
        {&test::ModelFiles::columns, "[ORACLE],NONE,CODE,Code,S,2,0,,Y,,,,M\n",
         "3021 No current record: the model has no table 'NONE'"},
        {&test::ModelFiles::columns, wholeColumn + "[ORACLE],STATUS,UP,Up,S,2,0,,,Nobody,Code,,M\n",
         "3021 No current record: the model has no entity 'Nobody'"},
        {&test::ModelFiles::columns, wholeColumn + "[ORACLE],STATUS,UP,Up,S,2,0,,,Status,Name,,M\n",
         "3021 No current record: the model has no attribute 'Name'"},
    };
    for (const auto& c : cases) {
        test::ModelFiles files;
        files.*c.file = c.lines;
        EXPECT_FALSE(ReadFiles(files));
        EXPECT_EQ(recorder.Take(), "exclamation: Error: " + c.error);
        EXPECT_EQ(Count("Table") + Count("Column"), 0);
        EXPECT_EQ(Rows("select [COOLGen Model Name] from [Database]"), "");
    }
    folder.Write("databases/Shop.dbs/table.txt", "one\ntwo\nMODEL\n");
    EXPECT_FALSE(fReadCOOLGenModel({.dbmsName = "ORACLE"}, true));
    EXPECT_EQ(recorder.Take(), "exclamation: Error: 62 Input past end of file (table.txt, line 3)");
    EXPECT_THAT(FilesInSchema(), UnorderedElementsAre("table.txt", "column.txt", "permval.txt"));
    for (const char* file : {"column.txt", "table.txt"}) {
        test::ModelFiles().WriteTo(folder, "databases/Shop.dbs");
        fs::remove(CurrentDBSFolder + "/" + file);
        EXPECT_FALSE(fReadCOOLGenModel({.dbmsName = "ORACLE"}, true));
        EXPECT_EQ(recorder.Take(), "exclamation: Cannot open the file: " + CurrentDBSFolder + "/" + file);
    }
}

// Extract tools that note how they were called and hand out prepared files.
class COOLGenExtractTest : public COOLGenModelTest {
 protected:
    void SetUp() override {
        COOLGenModelTest::SetUp();
        ProgramFolder = folder.Path("program") + "/";
        test::ModelFiles().WriteTo(folder, "prepared");
        for (const char* tool : {"table", "column", "permval"})
            WriteTool(tool, std::string("cp '") + folder.Path("prepared/") + tool + ".txt' \"${4#out=}\"");
        folder.Write("program/Drawbar/access.ini", "table=AAAA-1111\ncolumn=BBBB-2222\npermval=CCCC-3333\n");
        for (const char* file : {"IEF0000.DAT", "ief0700.dat", "IEF1200.dat", "ief2511.dat", "iefacces.log"})
            folder.Write(std::string("model/shop.ief/") + file, "part");
    }

    void WriteTool(const std::string& name, const std::string& end) {
        const std::string path = folder.Write(
            "program/Drawbar/" + name + ".exe",
            "#!/bin/sh\necho \"$# $1 $5 $6\" $(ls \"${2#model=}\") >> '" + folder.Path("calls") +
                "'\necho log > \"${3#log=}\"\ntouch '" + CurrentDBSFolder + "/ief0700.wrk'\n" + end + "\n");
        fs::permissions(path, fs::perms::owner_all);
    }

    bool Extract() {
        return fReadCOOLGenModel(
            {.modelFile = folder.Path("model\\shop.ief\\IEF0000.DAT"), .dbmsName = "NONSTOP SQL"}, false);
    }
};

TEST_F(COOLGenExtractTest, ToolsGetACopyOfTheModel) {
    ASSERT_TRUE(Extract());
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_THAT(
        recorder.statuses,
        ElementsAre("Reading COOL:Gen model", "Reading tables from COOL:Gen model",
                    "Reading columns from COOL:Gen model", "Reading permitted values from COOL:Gen model",
                    "Processing tables", "Processing columns", "Processing foreign keys"));
    const std::string files = " ief0000.dat ief0700.dat ief1200.dat ief2511.dat\n";
    EXPECT_EQ(test::ReadFile(folder.Path("calls")), "6 AAAA-1111 param=DBMS_NAME,NONSTOP silent" + files +
                                                        "6 BBBB-2222 param=DBMS_NAME,NONSTOP silent" + files +
                                                        "6 CCCC-3333 param=DBMS_NAME,NONSTOP silent" + files);
    EXPECT_THAT(FilesInSchema(), UnorderedElementsAre("table.txt", "column.txt", "permval.txt", "table.log",
                                                      "column.log", "permval.log"));
    EXPECT_TRUE(fs::exists(folder.Path("model/shop.ief/IEF0000.DAT")));
    EXPECT_FALSE(fs::exists(folder.Path("model/shop.ief/iefacces.log")));
}

TEST_F(COOLGenExtractTest, FailingToolEndsTheReadAndLeavesItsLog) {
    const struct {
        const char* tool;
        const char* message;
    } cases[] = {{"permval", "Unexpected error creating permval.txt file"},
                 {"column", "Unexpected error creating Column.txt file"},
                 {"table", "Unexpected error creating Table.txt file"}};
    for (const auto& c : cases) {
        WriteTool(c.tool, "exit 4");
        EXPECT_FALSE(Extract());
        EXPECT_EQ(recorder.Take(), std::string("exclamation: ") + c.message);
        EXPECT_TRUE(fs::exists(CurrentDBSFolder + "/" + c.tool + ".log"));
        EXPECT_FALSE(fs::exists(CurrentDBSFolder + "/temp.ief"));
        EXPECT_FALSE(fs::exists(CurrentDBSFolder + "/ief0700.wrk"));
    }
    EXPECT_EQ(Count("Table"), 0);
}

TEST_F(COOLGenExtractTest, WhatIsMissingIsTold) {
    folder.Write("program/Drawbar/access.ini", "table=AAAA-1111\n");
    EXPECT_FALSE(Extract());
    EXPECT_EQ(recorder.Take(), "exclamation: The access code of the extract tool 'column' is missing in " +
                                   folder.Path("program/Drawbar/access.ini") +
                                   "|exclamation: Unexpected error creating Column.txt file");
    fs::remove(folder.Path("program/Drawbar/table.exe"));
    EXPECT_FALSE(Extract());
    EXPECT_EQ(recorder.Take(), "exclamation: Error: 53 Program not found: '" +
                                   folder.Path("program/Drawbar/table.exe") +
                                   "'|exclamation: Unexpected error creating Table.txt file");
    const std::string start = "critical: Case Weaver - Test Manager: Unexpected error copying ";
    fs::remove(folder.Path("model/shop.ief/IEF1200.dat"));
    EXPECT_FALSE(Extract());
    EXPECT_EQ(recorder.Take(), start + "ief1200.dat file from COOL:Gen model");
    fs::remove_all(folder.Path("model"));
    EXPECT_FALSE(Extract());
    EXPECT_EQ(recorder.Take(), start + "ief0000.dat file from COOL:Gen model");
    EXPECT_FALSE(fs::exists(CurrentDBSFolder + "/temp.ief"));
}

TEST_F(COOLGenExtractTest, FilesThatCannotBeReadGoAgain) {
    folder.Write("prepared/column.txt", "one\n");
    EXPECT_FALSE(Extract());
    EXPECT_EQ(recorder.Take(), "exclamation: Error: 62 Input past end of file (column.txt, line 1)");
    EXPECT_THAT(FilesInSchema(), UnorderedElementsAre("table.log", "column.log", "permval.log"));
}

TEST_F(COOLGenExtractTest, ReadLibraryIsLookedForBesideTheProgram) {
    EXPECT_FALSE(fCOOLGenAPIPresent());
    folder.Write("program/eapi32w.dll", "no library");
    EXPECT_FALSE(fCOOLGenAPIPresent());
    Dl_info some = {};
    ASSERT_NE(dladdr(reinterpret_cast<const void*>(&sqlite3_libversion), &some), 0);
    fs::copy_file(some.dli_fname, folder.Path("program/eapi32w.dll"), fs::copy_options::overwrite_existing);
    EXPECT_TRUE(fCOOLGenAPIPresent());
}

}  // namespace
}  // namespace vellumark
