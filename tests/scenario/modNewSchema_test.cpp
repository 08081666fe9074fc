#include "scenario/modNewSchema.h"

#include <filesystem>
#include <gmock/gmock.h>

#include "embedded.h"
#include "model_files.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"
#include "schema/modConnectionString.h"
#include "schema/modDatabaseConnection.h"
#include "session.h"

namespace vellumark {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class NewSchemaTest : public test::SessionTest {
 protected:
    void SetUp() override {
        SessionTest::SetUp();
        test::MakeEmbedded(
            source,
            "create table Parent (Id INTEGER primary key, Name VARCHAR(20));"
            "create table Child (Id INTEGER primary key, ParentId INTEGER references Parent);");
        folder.Write("CWtoGW.txt",
                     "1\nCAB is BANK\n3\n4\nDatabase \"cw.mdb\"\n6\n7\nCOL Test_Cases a_id a_id X 8 0\n");
        folder.Write("SWtoGWEABDef.txt",
                     "1\nEAB is PRICES\n3\n4\nDatabase: \"sw.mdb\"\nStyle is G\nTable is PRICE\n8\n9\n"
                     "COL at at T 6 0\n");
    }
    void TearDown() override {
        AutoConnect = false;
        SessionTest::TearDown();
    }

    NewSchemaDetails Details(const std::string& name, NewSchemaKind kind = NewSchemaKind::Connection) const {
        NewSchemaDetails details{.kind = kind, .name = name, .description = "about it"};
        details.connection.mdbFile = source;
        fConnectionString(details.connection);
        details.sisterFile =
            folder.Path(kind == NewSchemaKind::CaseWeaver ? "CWtoGW.txt" : "SWtoGWEABDef.txt");
        details.model.dbmsName = "ORACLE";
        return details;
    }

    // A schema of model files that stand in its folder.
    NewSchemaDetails Model(const std::string& name, const test::ModelFiles& files = {}) const {
        files.WriteTo(folder, "databases/" + name + ".dbs");
        NewSchemaDetails details = Details(name, NewSchemaKind::COOLGen);
        details.description = kReadOnlyWord;
        details.model.permittedValues = true;
        return details;
    }

    std::string AllRows() {
        std::string counts;
        for (const char* table : {"Database", "Database Connection", "Table", "Column", "Test Scenario",
                                  "resolver Test Scenario Table", "TSO Insert Table Rule",
                                  "TSO Insert Column Rule", "TSO Delete Table Rule", "Value Source"})
            counts += std::to_string(Count(table)) + " ";
        return counts + ModelCategories();
    }

    std::string ModelCategories() {
        const ValuesScope values;
        return test::RowsOf(
            ValuesDatabase,
            "select c.[Name], c.[Data Type], (select group_concat(v.[Id] || v.[Value] || v.[Sort Order]) "
            "from "
            "[Value] v where v.[FK CAT Id] = c.[Id]) from [Category] c where c.[Type] = 'C' order by c.[Id]");
    }

    const std::string source = folder.Path("source.mdb");
};

TEST_F(NewSchemaTest, ConnectionIsReadAndReadyToUse) {
    ASSERT_TRUE(fNewSchema(Details("Shop")));
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_THAT(recorder.statuses,
                ElementsAre("Reading Database Definition", "Reading in database tables and columns",
                            "Setting defaults", "Creating default Insert Scenario", ""));
    EXPECT_EQ(Rows("select [Id], [Name], [Description], [Source], [FK CON Id Source], [FK CON Id Target] "
                   "from [Database]"),
              "1|Shop|about it|D|1|2");
    EXPECT_EQ(Rows("select [Description] from [Database Connection]"),
              "Shop (Source) - DBMS: 'Jet' MDB: 'source.mdb'\nShop (Target) - DBMS: 'Jet' MDB: 'source.mdb'");
    EXPECT_EQ(Rows("select [Name] from [Table] order by [Id]"), "Parent\nChild");
    EXPECT_EQ(Rows("select [Id], [Name], [Type] from [Test Scenario]"),
              "0|System|0\n1|Scenario to delete data|D\n2|Scenario to create data|I");
    EXPECT_EQ(CurrentTSOName, "Scenario to create data");
    EXPECT_EQ(CurrentTSOType, 'I');
    EXPECT_EQ(SessionState, kOpenWithScenario);
    EXPECT_EQ(ShownSchemaDescription, "about it");
    EXPECT_EQ(TargetConnectionState, 'D');
    EXPECT_TRUE(fs::is_directory(CurrentDBSFolder + "/Scenario to delete data.tso"));
}

TEST_F(NewSchemaTest, EveryOtherKindHasAPlaceholderForATarget) {
    const struct {
        NewSchemaDetails details;
        char code;
        std::string model;
        std::string tables;
        std::vector<std::string> statuses;
    } cases[] = {
        {Model("Model"),
         'C',
         "SHOP MODEL",
         "CUSTOMER\nORDERS\nSTATUS",
         {"Reading Database Definition", "Processing tables", "Processing columns", "Processing foreign keys",
          "Setting defaults", "Processing permitted values", "Creating default Insert Scenario", ""}},
        {Details("Bank", NewSchemaKind::CaseWeaver), 'T', "Case Weaver CAB: BANK", "Test Cases", {""}},
        {Details("Prices", NewSchemaKind::SheetWeaver), 'R', "Sheet Weaver EAB: PRICES", "PRICE", {""}},
    };
    int id = 0;
    for (const auto& c : cases) {
        recorder.statuses.clear();
        ASSERT_TRUE(fNewSchema(c.details));
        const std::string key = std::to_string(++id);
        EXPECT_EQ(recorder.Take(), "");
        EXPECT_EQ(recorder.statuses, c.statuses);
        EXPECT_EQ(CurrentDBSSource, c.code);
        EXPECT_EQ(ShownModelName, c.model);
        EXPECT_EQ(CurrentTSOName, "Scenario to create data");
        EXPECT_EQ(DeleteScenarioNames, std::vector<std::string>{"Scenario to delete data"});
        EXPECT_EQ(Rows("select [Source], [FK CON Id Source], [FK CON Id Target] from [Database] where [Id] "
                       "= " +
                       key),
                  std::string(1, c.code) + "|0|" + key);
        EXPECT_EQ(Rows("select [Description] from [Database Connection] where [Id] = " + key),
                  c.details.name + " (Target) - To Be Configured");
        EXPECT_EQ(Rows("select [Name] from [Table] where [FK DBS Id] = " + key + " order by [Id]"), c.tables);
        EXPECT_FALSE(ConnectTarget());
        EXPECT_EQ(recorder.Take(), "exclamation: Please configure your Target Database Connnection details");
    }
}

TEST_F(NewSchemaTest, ManualSchemaIsEmptyAndHasNoDefaultScenarios) {
    AutoConnect = true;  // there is nothing to connect to yet
    ASSERT_TRUE(fNewSchema(Details("By hand", NewSchemaKind::Manual)));
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(Rows("select [Name], [Source], [FK CON Id Source], [FK CON Id Target] from [Database]"),
              "By hand|M|0|1");
    EXPECT_EQ(Rows("select [Id], [Name], [Type] from [Test Scenario]"), "0|System|0");
    EXPECT_EQ(SessionState, kOpenNoScenario);
    EXPECT_TRUE(fs::is_directory(CurrentDBSFolder));
    EXPECT_FALSE(fNewSchema(Details("by HAND", NewSchemaKind::Manual)));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Database name already exists in Vellumark.\n\nPlease enter a "
              "different Name and try again.");
}

TEST_F(NewSchemaTest, ManualNameIsAskedForUntilItIsUsable) {
    fs::create_directory(folder.Path("databases/There.dbs"));
    ASSERT_TRUE(fNewSchema(Details("Taken", NewSchemaKind::Manual)));
    std::string longest;
    for (int i = 0; i < 50; ++i)
        longest += "ä";
    recorder.promptAnswers = {longest + "x", "taken", "a/b", "There", longest};
    recorder.yesNoAnswers = {false};
    ASSERT_TRUE(fNewSchema(Details("", NewSchemaKind::Manual)));
    const std::string prompt = "prompt: Vellumark: Enter the new Database Schema name: []|";
    EXPECT_EQ(recorder.Take() + "|",
              prompt + "exclamation: Name may not be greater than 50 characters.|" + prompt +
                  "exclamation: Database name already exists in Vellumark.\n\nPlease enter a different Name "
                  "and try again.|" +
                  prompt + "exclamation: Database name may not hold a folder separator.|" + prompt +
                  "question: Database directory already exists: " + folder.Path("databases/There.dbs") +
                  "\n\nDo you want to continue?|" + prompt);
    EXPECT_EQ(CurrentDBSName, longest);

    recorder.promptAnswers = {std::nullopt};
    EXPECT_FALSE(fNewSchema(Details("", NewSchemaKind::Manual)));
    EXPECT_EQ(CurrentDBSName, longest) << "giving up closes nothing";
}

TEST_F(NewSchemaTest, RefusalsLeaveNoTrace) {
    ASSERT_TRUE(fNewSchema(Details("Shop")));
    const std::string before = AllRows();
    EXPECT_FALSE(fNewSchema(Details("")));
    EXPECT_FALSE(fNewSchema(Details("a/b")));
    NewSchemaDetails unknown = Details("Model", NewSchemaKind::COOLGen);
    unknown.model.dbmsName = "";
    EXPECT_FALSE(fNewSchema(unknown));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Please enter a unique name to save this database in Vellumark|"
              "exclamation: Database name may not hold a folder separator.|"
              "exclamation: Please select the DBMS of the COOL:Gen model");
    EXPECT_EQ(CurrentDBSName, "Shop");
    EXPECT_FALSE(fNewSchema(Details("SHOP")));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Database name already exists in Vellumark.\n\nPlease enter a different "
              "Name and try again.");

    NewSchemaDetails broken = Details("Broken");
    broken.connection.mdbFile = folder.Path("none.mdb");
    for (const char protocol : {'A', 'D'}) {
        broken.connection.protocol = protocol;
        fConnectionString(broken.connection);
        EXPECT_FALSE(fNewSchema(broken));
        EXPECT_NE(recorder.Take().find("Cannot connect to source database."), std::string::npos);
    }
    EXPECT_EQ(AllRows(), before);
    EXPECT_FALSE(fs::exists(folder.Path("databases/Broken.dbs")));
    EXPECT_EQ(SessionState, kNotOpen);
}

TEST_F(NewSchemaTest, FailedCaptureLeavesNeitherRowsNorFolder) {
    const std::string before = AllRows();
    for (const NewSchemaKind kind :
         {NewSchemaKind::COOLGen, NewSchemaKind::CaseWeaver, NewSchemaKind::SheetWeaver}) {
        NewSchemaDetails details = Details("Broken", kind);
        details.sisterFile = folder.Write("cut.txt", "1\nX is Y\n3\n");
        details.model.modelFile = folder.Path("none/IEF0000.dat");
        EXPECT_FALSE(fNewSchema(details));
        EXPECT_NE(recorder.Take(), "");
        EXPECT_EQ(AllRows(), before);
        EXPECT_FALSE(fs::exists(folder.Path("databases/Broken.dbs")));
        EXPECT_EQ(SessionState, kNotOpen);
    }
}

TEST_F(NewSchemaTest, FailureBehindTheCaptureTakesTheCategoriesAlong) {
    const std::string before = AllRows();
    test::ModelFiles files;
    files.values += "[ORACLE],STATUS,NONE,1\n";
    EXPECT_FALSE(fNewSchema(Model("Shop", files)));
    EXPECT_EQ(recorder.Take(),
              "exclamation: Error: 3021 No current record: the table 'STATUS' has no column "
              "'NONE' (permval.txt, line 10)");
    EXPECT_EQ(AllRows(), before);

    files = {};
    const NewSchemaDetails details = Model("Shop", files);
    folder.Write("databases/Shop.dbs/Scenario to create data.tso", "a file where a folder should be");
    EXPECT_FALSE(fNewSchema(details));
    EXPECT_NE(recorder.Take().find("Unexpected error occurred creating the Scenario."), std::string::npos);
    EXPECT_EQ(AllRows(), before);
    EXPECT_TRUE(fs::exists(folder.Path("databases/Shop.dbs/permval.txt"))) << "the user's own files stay";
}

TEST_F(NewSchemaTest, FolderThatIsThereIsAskedAboutAndKept) {
    folder.Write("databases/Shop.dbs/notes.txt", "mine");
    recorder.yesNoAnswers = {false, true};
    EXPECT_FALSE(fNewSchema(Details("Shop")));
    EXPECT_EQ(recorder.Take(), "question: Database directory already exists: " +
                                   folder.Path("databases/Shop.dbs") + "\n\nDo you want to continue?");
    EXPECT_EQ(Count("Database"), 0);
    ASSERT_TRUE(fNewSchema(Details("Shop")));
    EXPECT_EQ(test::ReadFile(CurrentDBSFolder + "/notes.txt"), "mine");
}

TEST_F(NewSchemaTest, ReadOnlyWordNeedsTheFolderAndAsksNothing) {
    NewSchemaDetails details = Details("Shop");
    details.description = kReadOnlyWord;
    EXPECT_FALSE(fNewSchema(details));
    EXPECT_EQ(recorder.Take(),
              "critical: Cannot find Database directory '" + folder.Path("databases/Shop.dbs") + "'");
    EXPECT_EQ(Count("Database") + Count("Database Connection"), 0);
    fs::create_directory(folder.Path("databases/Shop.dbs"));
    ASSERT_TRUE(fNewSchema(details));
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(ShownSchemaDescription, "KELPSHORE");
    details = Details("Other");
    details.description = "Kelpshore";
    ASSERT_TRUE(fNewSchema(details));
    EXPECT_TRUE(fs::exists(folder.Path("databases/Other.dbs"))) << "another spelling is a plain description";
}

TEST_F(NewSchemaTest, PermittedValuesBecomeCategoriesOfTheDefaultRules) {
    test::ModelFiles files;
    files.columns +=
        "[ORACLE],STATUS,RATE,Rate,P,5,2,,,,,,M\n"
        "[ORACLE],STATUS,AT,At,T,6,0,,,,,,M\n"
        "[ORACLE],STATUS,SINCE,Since,Q,26,0,,,,,,M\n"
        "[ORACLE],STATUS,RATE_B,RateB,F,5,0,,,,,,M\n";
    files.values +=
        "[ORACLE],STATUS,RATE_B,1\n"
        "[ORACLE],STATUS,RATE,0.5\n"
        "[ORACLE],STATUS,AT,01:02:03\n"
        "[ORACLE],STATUS,SINCE,one, two\n"
        "[ORACLE],status,rate,0.7\n";
    ASSERT_TRUE(fNewSchema(Model("Shop", files)));
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(ModelCategories(),
              "CUSTOMER sex 0001|C|1M1,2F2,3U3\n"
              "CUSTOMER born 0001|D|11999-12-311,22001-02-032\n"
              "STATUS code 0001|I|1101,2202\n"
              "STATUS rate_b 0001|I|111\n"
              // The number is that behind the last name with the same beginning.
              "STATUS rate 0002|R|10.51\n"
              "STATUS at 0001|T|101:02:031\n"
              "STATUS since 0001|C|1one1,2 two2\n"
              "status rate 0003|R|10.71");
    EXPECT_EQ(Rows("select [FK TAB Id], [FK COL Id] from [TSO Insert Column Rule] where [Code Generate Data "
                   "Type] = 'V' order by [FK TAB Id], [FK COL Id]"),
              "1|2\n1|3\n3|1\n3|2\n3|3\n3|4\n3|5");
    EXPECT_EQ(
        Rows("select [Type], [Start from Column], [End at Column], [Column end Cell], [Start from Row], "
             "[End at Row], [Row end Cell], [Delimited Field Number], [Delimiter], [File Read "
             "Interval], [Read File Order], [File Read Hold Frequency], [Code Input Value In Quotes], "
             "[If End of File], [Code Input Datetime Edit Pattern], [Sheet], [Name and Path], [FK CON "
             "Id], [FK TCR Id], [FK TTR Id], [FK COL Id], [FK TAB Id], [FK DBS Id], [FK TSO Id] from "
             "[Value Source] where [FK TAB Id] = 1 and [FK COL Id] = 2"),
        "V|0|0|0|1|999999999|0|0||1|R|1|D|L|0|||0|2|1|2|1|1|0");
}

TEST_F(NewSchemaTest, NextSchemaOfAModelGetsTheNextNumbers) {
    test::ModelFiles files;
    files.values = "[ORACLE],CUSTOMER,SEX,M,F\n";
    ASSERT_TRUE(fNewSchema(Model("One", files)));
    ASSERT_TRUE(fNewSchema(Model("Two", files)));
    EXPECT_EQ(ModelCategories(), "CUSTOMER sex 0001|C|1M1,2F2\nCUSTOMER sex 0002|C|1M1,2F2");
    const std::string shown =
        "select [FK DBS Id], [FK CAT Id] - (select min([FK CAT Id]) from [Value Source]) "
        "from [Value Source] order by 1";
    EXPECT_EQ(Rows(shown), "1|0\n2|1");
}

}  // namespace
}  // namespace vellumark
