// Schemas of every kind by command, and runs on those that don't come from a database.

#include <filesystem>
#include <gtest/gtest.h>

#include "cli.h"
#include "embedded.h"
#include "model_files.h"

namespace vellumark::test {
namespace {

class CliReadTest : public ::testing::Test {
 protected:
    void SetUp() override {
        folder.Write("Vellumark.INI", "REPOSITORY=" + folder.Path() + "\nVALUES=" + folder.Path() +
                                          "\nVM_DATABASES=" + folder.Path("databases") + "\n");
        Do({"init"});
    }

    CliResult Run(std::vector<std::string> words) {
        words.insert(words.begin(), {"--settings", folder.Path("Vellumark.INI")});
        return RunCli(words, [this] { std::filesystem::current_path(folder.Path()); });
    }

    std::string Do(const std::vector<std::string>& words) {
        const CliResult result = Run(words);
        EXPECT_EQ(result.status, 0) << ::testing::PrintToString(words) << result.err;
        EXPECT_EQ(result.err, "");
        return result.out;
    }

    // Rows of every table given, in a delimited file.
    std::string Generate(const std::string& schema, const std::vector<std::string>& tables) {
        const std::string scenario = "Scenario to create data";
        for (const std::string& table : tables)
            Do({"rule", "add", schema, scenario, table, "--start", "1", "--end", "3"});
        const std::string file = folder.Path(schema + ".txt");
        Do({"generate", schema, scenario, "--file", file, "--format", "Text File - Delimited"});
        return ReadFile(file);
    }

    TempFolder folder;
};

TEST_F(CliReadTest, SisterToolsFilesMakeDelimitedText) {
    folder.Write("CWtoGW.txt",
                 "1\nCAB is BANK\n3\n4\nDatabase \"cw.mdb\"\n6\n7\n"
                 "COL Test_Cases case_id case_id X 8 0\nCOL Test_Cases import balance 9 9 2\n"
                 "COL Test_Cases import opened D\nCOL Test_Cases (GROUP_VIEW) lines X 20 0\n");
    EXPECT_EQ(Do({"read", "Bank", "--kind", "caseweaver"}), "read 1 tables into Bank\n");
    EXPECT_EQ(Do({"describe", "Bank", "test cases"}),
              "Column              Type           Key  Optional  Parent\n"
              "CASE_ID             Character(8)   yes\n"
              "IMPORT balance      Double(9,2)\n"
              "IMPORT opened       Date\n"
              "(GROUP_VIEW) lines  Character(20)\n");
    EXPECT_EQ(Generate("Bank", {"Test Cases"}),
              "CASE_ID1,1,02/01/2000,Drill down...\r\nCASE_ID2,2,03/01/2000,Drill down...\r\n"
              "CASE_ID3,3,04/01/2000,Drill down...\r\n");

    const std::string file = folder.Write(
        "elsewhere/prices.txt",
        "1\nEAB is PRICES\n3\n4\nDatabase: \"sw.mdb\"\nStyle is G\nTable is PRICE\n8\n9\nCOL a b X 4 0\n");
    EXPECT_EQ(Do({"read", "Prices", "--kind", "sheetweaver", "--file", file}), "read 1 tables into Prices\n");
    EXPECT_EQ(Generate("Prices", {"PRICE"}), "A1\r\nA2\r\nA3\r\n");
}

TEST_F(CliReadTest, ModelWithPermittedValuesIsGenerated) {
    ModelFiles().WriteTo(folder, "databases/Shop.dbs");
    EXPECT_EQ(Do({"read", "Shop", "--kind", "coolgen", "--dbms", "oracle", "--description", "KELPSHORE",
                  "--permitted-values"}),
              "read 3 tables into Shop\n");
    EXPECT_EQ(Do({"tables", "Shop"}), "CUSTOMER\nORDERS\nSTATUS\n");
    EXPECT_EQ(Do({"describe", "Shop", "ORDERS"}),
              "Column       Type             Key  Optional  Parent\n"
              "ORDER_ID     Long Integer(8)  yes\n"
              "FK_CUST_ID   Long Integer(8)                 CUSTOMER.CUST_ID\n"
              "STATUS_CODE  Integer(2)            yes       STATUS.CODE\n");
    const std::string text = Generate("Shop", {"CUSTOMER"});
    EXPECT_EQ(text.substr(text.find("\r\n1,") + 2), "1,F,1999-12-31\r\n2,U,2001-02-03\r\n3,M,1999-12-31\r\n");
}

TEST_F(CliReadTest, ManualSchemaTakesItsNameAsGiven) {
    EXPECT_EQ(Do({"read", "By hand", "--kind", "manual"}), "read 0 tables into By hand\n");
    EXPECT_EQ(Do({"tables", "By hand"}) + Do({"scenarios", "By hand"}), "");
    const CliResult taken = Run({"read", "by hand", "--kind", "manual"});
    EXPECT_EQ(taken.status, 1);
    EXPECT_EQ(taken.err,
              "exclamation: Database name already exists in Vellumark.\n\nPlease enter a "
              "different Name and try again.\n");
}

TEST_F(CliReadTest, DescribesTablesOfADatabase) {
    const std::string shop = MakeEmbedded(
        folder.Path("shop.mdb"),
        "create table Größe (Id INTEGER primary key, Größe VARCHAR(9) not null, At DATETIME, Price CURRENCY);"
        "create table [Order Line] (Id INTEGER primary key, SizeId INTEGER references Größe (Id));");
    Do({"read", "Shop", "--type", "Jet", "--mdb", shop});
    EXPECT_EQ(Do({"describe", "Shop", "Größe"}),
              "Column  Type              Key  Optional  Parent\n"
              "Id      Long Integer(10)  yes\n"
              "Größe   Character(9)\n"
              "At      TimeStamp              yes\n"
              "Price   Double(19)             yes\n");
    EXPECT_EQ(Do({"describe", "shop", "order line"}),
              "Column  Type              Key  Optional  Parent\n"
              "Id      Long Integer(10)  yes\n"
              "SizeId  Long Integer(10)       yes       Größe.Id\n");
    const CliResult unknown = Run({"describe", "Shop", "Nope"});
    EXPECT_EQ(std::to_string(unknown.status) + unknown.out + unknown.err,
              "1exclamation: There is no table 'Nope' in the Database schema 'Shop'.\n");
}

TEST_F(CliReadTest, WordsMustGoWithTheKind) {
    const struct {
        std::vector<std::string> words;
        std::string error;
    } cases[] = {
        {{}, "--type (of --kind connection) is required"},
        {{"--type", "Jet", "--file", "a"}, "--file: does not go with --kind connection"},
        {{"--kind", "manual", "--mdb", "a"}, "--mdb: does not go with --kind manual"},
        {{"--kind", "manual", "--permitted-values"}, "--permitted-values: does not go with --kind manual"},
        {{"--kind", "caseweaver", "--model", "a"}, "--model: does not go with --kind caseweaver"},
        {{"--kind", "coolgen", "--model", "a"}, "--dbms (of --kind coolgen) is required"},
        {{"--kind", "coolgen", "--dbms", "RDB"}, "--model (of --kind coolgen) is required"},
        {{"--kind", "coolgen", "--dbms", "Paradox"}, "--dbms: Paradox not in {DB2 MVS,"},
        {{"--kind", "paper"}, "--kind: paper not in {connection,"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words = {"read", "New"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const CliResult result = Run(words);
        EXPECT_EQ(result.status, 2) << c.error;
        EXPECT_EQ(result.err.substr(0, c.error.size()), c.error);
    }
    const CliResult noFile = Run({"read", "New", "--kind", "sheetweaver"});
    EXPECT_EQ(noFile.status, 1);
    EXPECT_TRUE(noFile.err.starts_with("exclamation: Please use Sheet Weaver to create the file: "))
        << noFile.err;
    EXPECT_TRUE(noFile.err.ends_with("/SWtoGWEABDef.txt\n")) << noFile.err;
    EXPECT_EQ(Run({"read", "New", "--kind", "coolgen", "--dbms", "RDB", "--model", "m/IEF0000.dat"}).err,
              "critical: Can not load Cool:Gen read API (eapi32w.dll)\nPlease make sure Cool:Gen read only "
              "API is installed properly.\n");
    EXPECT_EQ(Do({"schemas"}), "");
}

}  // namespace
}  // namespace vellumark::test
