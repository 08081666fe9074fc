// Dependencies, Column rules and Value Sources by command, as far as a run into an embedded database and
// back.

#include <filesystem>
#include <gtest/gtest.h>

#include "cli.h"
#include "platform/dao/database.h"
#include "session.h"
#include "test_files.h"

namespace vellumark::test {
namespace {

class CliRulesTest : public ::testing::Test {
 protected:
    void SetUp() override {
        folder.Write("Vellumark.INI", "REPOSITORY=" + folder.Path() + "\nVALUES=" + folder.Path() +
                                          "\nVM_DATABASES=" + folder.Path("databases") + "\n");
        dao::CreateDatabase(shop);
        const dao::Database database = dao::OpenDatabase(shop);
        for (const char* sql : {"create table Artist (Id INTEGER primary key, Name VARCHAR(20) not null)",
                                "create table Album (Id INTEGER primary key, Title VARCHAR(20), ArtistId "
                                "INTEGER not null references Artist)",
                                "insert into Artist values (1, 'Kept')"})
            database.Prepare(sql).Execute();
        Do({"init"});
        Do({"read", "Music", "--type", "Jet", "--mdb", shop, "--protocol", "dao"});
        Do({"scenario", "new", "Music", "Fill"});
        Do({"rule", "add", "Music", "Fill", "Artist", "--start", "101", "--end", "103"});
        Do({"rule", "add", "Music", "Fill", "Album", "--start", "101", "--end", "106"});
    }

    CliResult Run(std::vector<std::string> words) {
        words.insert(words.begin(), {"--settings", folder.Path("Vellumark.INI"), "--yes"});
        return RunCli(words);
    }

    std::string Do(const std::vector<std::string>& words) {
        const CliResult result = Run(words);
        EXPECT_EQ(result.status, 0) << ::testing::PrintToString(words) << result.err;
        return result.out;
    }

    std::string Refusal(const std::vector<std::string>& words) {
        const CliResult result = Run(words);
        EXPECT_EQ(result.status, 1) << ::testing::PrintToString(words);
        return result.err;
    }

    std::string ShopRows(const std::string& sql) { return RowsOf(dao::OpenDatabase(shop), sql); }

    TempFolder folder;
    std::string shop = folder.Path("music.mdb");
};

TEST_F(CliRulesTest, FillsADatabaseAndEmptiesItAgain) {
    EXPECT_EQ(Do({"depend", "Music", "Fill", "--child", "2.ArtistId", "--parent", "1", "--generate", "2",
                  "--increment", "2"}),
              "1\n");
    folder.Write("names.txt", "Ann\nBea\nCora\n");
    Do({"category", "import", "Three names", "--type", "character", folder.Path("names.txt")});
    EXPECT_NE(Do({"categories"}).find("Three names\tC\t3\n"), std::string::npos);
    Do({"source", "Music", "Fill", "1", "Name", "--kind", "category", "--category", "three names", "--order",
        "sequential"});
    Do({"column", "Music", "Fill", "2", "Title", "Constant Value=Opus ", "Concat Value with Id=E"});
    EXPECT_EQ(Do({"rules", "Music", "Fill"}),
              "1\tArtist\t101-103\t3\tgenerated\n2\tAlbum\t101-106\t6\tgenerated\n");
    EXPECT_EQ(Do({"show", "Music", "Fill", "2"}),
              "Id\tLong Integer\t\t\n"
              "Title\tCharacter\t\tConstant Value=Opus ; Concat Value with Id=E\n"
              "ArtistId\tLong Integer\tfrom Table rule 1\t\n");

    Do({"generate", "Music", "Fill", "--database"});
    EXPECT_EQ(ShopRows("select * from Artist"), "1|Kept\n101|Ann\n102|Bea\n103|Cora");
    EXPECT_EQ(ShopRows("select * from Album"),
              "101|Opus 101|101\n102|Opus 102|101\n103|Opus 103|102\n104|Opus 104|102\n"
              "105|Opus 105|103\n106|Opus 106|103");
    // A second run meets the first one's rows.
    EXPECT_TRUE(
        Refusal({"generate", "Music", "Fill", "--database"})
            .starts_with("question: Unexpected error occurred during the data generation.\nError: 3022 "));

    Do({"scenario", "new", "Music", "Clear", "--kind", "delete"});
    Do({"rule", "add", "Music", "Clear", "Album"});
    Do({"rule", "add", "Music", "Clear", "Artist", "--where", "where Id > 100"});
    Do({"generate", "Music", "Clear", "--database"});
    EXPECT_EQ(ShopRows("select (select count(*) from Album), (select group_concat(Name) from Artist)"),
              "0|Kept");
}

TEST_F(CliRulesTest, MicrosoftAccessFilesGiveValuesAndTakeNone) {
    const std::string before = ReadFile(TestData("fruit.mdb"));
    const std::string fruit = folder.Write("fruit.mdb", before);
    for (const char* protocol : {"dao", "ado"}) {
        Do({"source", "Music", "Fill", "1", "Name", "--kind", "database", "--type", "Jet", "--protocol",
            protocol, "--mdb", fruit, "--table", "Muffin/Bread", "--source-column", "fruit", "--order",
            "sequential"});
        const std::string file = folder.Path(std::string(protocol) + ".txt");
        Do({"generate", "Music", "Fill", "--file", file, "--format", "Text File - Delimited"});
        const std::string text = ReadFile(file);
        EXPECT_NE(text.find("\r\n101,Banana\r\n102,Blueberry\r\n103,Carrots\r\n"), text.npos) << text;

        const std::string schema = std::string("Fruit by ") + protocol;
        const std::string refusal =
            "exclamation: '" + fruit +
            "' is a Microsoft Access file; Vellumark reads such files but doesn't write them.\n";
        Do({"read", schema, "--type", "Jet", "--protocol", protocol, "--mdb", fruit});
        EXPECT_EQ(Refusal({"connect", schema, "--type", "Jet", "--protocol", protocol, "--mdb", fruit}),
                  refusal);
        Do({"rule", "add", schema, "Scenario to create data", "Fruit", "--end", "3"});
        EXPECT_EQ(Refusal({"generate", schema, "Scenario to create data", "--database"}), refusal);
        Do({"rule", "add", schema, "Scenario to delete data", "Fruit"});
        EXPECT_TRUE(Refusal({"generate", schema, "Scenario to delete data", "--database"})
                        .ends_with(refusal + "critical: Cannot continue deleting data\n"));
    }
    EXPECT_EQ(ReadFile(fruit), before);
}

TEST_F(CliRulesTest, DependenciesAreTakenAwayAgain) {
    const std::vector<std::string> depend = {"depend",     "Music",    "Fill", "--child",
                                             "2.ArtistId", "--parent", "new"};
    const std::string rules = Do({"rules", "Music", "Fill"});
    for (const std::vector<std::string>& clear :
         {std::vector<std::string>{"depend", "Music", "Fill", "--child", "2.ArtistId", "--clear"},
          std::vector<std::string>{"depend", "Music", "Fill", "--clear-all"}}) {
        EXPECT_EQ(Do(depend), "3\n");
        EXPECT_NE(Do({"rules", "Music", "Fill"}), rules);
        Do(clear);
        EXPECT_EQ(Do({"rules", "Music", "Fill"}), rules);
    }
    EXPECT_EQ(Run({"depend", "Music", "Fill", "--clear-all", "--child", "2.ArtistId"}).status, 2);
}

TEST_F(CliRulesTest, DelimitedTextGoesIntoATable) {
    const std::string control = folder.Write("albums.txt", "replaced"), rows = folder.Path("rows.txt");
    const std::vector<std::string> words = {"load-file", "Music",  "Fill",  "2",           "--format",
                                            "oracle",    "--file", control, "--delimiter", ";"};
    EXPECT_EQ(Do(words), control + "\n");
    EXPECT_NE(ReadFile(control).find("INTO TABLE Album\r\nFIELDS TERMINATED BY \";\"\r\n(\r\nId,\r\n"),
              std::string::npos);
    // The first rule's rows, below the two comment lines.
    Do({"generate", "Music", "Fill", "--file", rows, "--format", "Text File - Delimited"});
    const std::string text = ReadFile(rows);
    folder.Write("rows.txt", text.substr(0, text.rfind("\r\n101,")) + "\r\n");
    EXPECT_EQ(Do({"load-table", "--mdb", shop, "--table", "Artist", "--file", rows, "--delimiter", ","}),
              "3 rows\n");
    EXPECT_EQ(ShopRows("select * from Artist"), "1|Kept\n101|Name101\n102|Name102\n103|Name103");
    const std::string refusal =
        Refusal({"load-table", "--mdb", shop, "--table", "Artist", "--file", rows, "--delimiter", ";"});
    EXPECT_TRUE(
        refusal.ends_with("Error: 13 Row 3: column Id: '101,Name101' is no whole number\n"
                          "exclamation: Table not loaded\n"))
        << refusal;
    EXPECT_EQ(ShopRows("select count(*) from Artist"), "4");
}

TEST_F(CliRulesTest, RefusalsTellWhatIsWrong) {
    const std::vector<std::string> source = {"source", "Music", "Fill", "1", "Name", "--kind"};
    const auto with = [&source](std::vector<std::string> more) {
        more.insert(more.begin(), source.begin(), source.end());
        return more;
    };
    const struct {
        std::vector<std::string> words;
        const char* message;
    } cases[] = {
        {{"depend", "Music", "Fill", "--child", "ArtistId", "--parent", "1"},
         "The child is given as RULE.COLUMN, with the rule's Id, for example 2.AlbumId."},
        {{"depend", "Music", "Fill", "--child", "2.Title", "--parent", "1"},
         "The rule's table has no foreign-key column 'Title'."},
        {{"depend", "Music", "Fill", "--child", "2.ArtistId", "--parent", "2"},
         "Table rule 2 is no rule of the table that the foreign key refers to."},
        {{"depend", "Music", "Fill", "--child", "2.ArtistId", "--parent", "1", "--increment", "0"},
         "Please enter an increment quantity greater than zero"},
        {{"column", "Music", "Fill", "1", "Name", "Nonsense"}, "'Nonsense' is not of the form FIELD=VALUE."},
        {with({"category", "--category", "Nope"}), "There is no Category 'Nope'."},
        {with({"category", "--category", "Countries", "--conversion", "Nope"}),
         "There is no Conversion Code 'Nope'."},
        {with({"delimited", "--file", "/none/x.txt"}), "Please select a valid input file name and path."},
        {with({"database", "--type", "Jet", "--mdb", "x.mdb"}),
         "Please enter the database connection details"},
        {{"category", "import", "X", "--type", "date", folder.Path("none.txt")}, "Cannot open the file: "},
        {{"load-file", "Music", "Fill", "2", "--format", "Sybase", "--file", "x.txt"},
         "There is no load file format 'Sybase'. The formats are:\n  DB2 Universal Database\n  Jet\n"
         "  MS/SQL Server\n  Oracle\n"},
        {{"load-file", "Music", "Fill", "9", "--format", "Jet", "--file", "x.txt"},
         "There is no Table rule 9 in this Scenario."},
        {{"show", "Music", "Fill", "9"}, "There is no Table rule 9 in this Scenario."},
        {{"column", "Music", "Scenario to delete data", "1", "Name", "Flag Exclude=True"},
         "'Scenario to delete data' is a Delete Scenario."},
    };
    const std::string before = Do({"show", "Music", "Fill", "1"}) + Do({"show", "Music", "Fill", "2"});
    for (const auto& c : cases)
        EXPECT_TRUE(Refusal(c.words).starts_with(std::string("exclamation: ") + c.message)) << c.message;
    EXPECT_EQ(Do({"show", "Music", "Fill", "1"}) + Do({"show", "Music", "Fill", "2"}), before);
    EXPECT_EQ(Run({"source", "Music", "Fill", "1", "Name", "--kind", "magic"}).status, 2);
    EXPECT_EQ(Run({"depend", "Music", "Fill", "--child", "2.ArtistId"}).status, 2);
}

TEST_F(CliRulesTest, ConnectChangesAndTriesTheTarget) {
    const std::string other = folder.Path("other.mdb");
    dao::CreateDatabase(other);
    Do({"connect", "Music", "--type", "Jet", "--mdb", other});
    const std::string missing =
        Refusal({"connect", "Music", "--type", "Jet", "--mdb", folder.Path("none.mdb")});
    EXPECT_NE(missing.find("Error: 3024 "), std::string::npos) << missing;
    EXPECT_TRUE(missing.ends_with("exclamation: Cannot connect to target database.\n")) << missing;
    const std::string run = Refusal({"generate", "Music", "Fill", "--database"});
    EXPECT_TRUE(run.ends_with("exclamation: Cannot connect to target database.\n")) << run;
}

}  // namespace
}  // namespace vellumark::test
