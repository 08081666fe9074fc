#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

#include "cli.h"
#include "embedded.h"
#include "platform/dao/database.h"
#include "session.h"

namespace vellumark::test {
namespace {

class ConnectionCommands : public ::testing::Test {
 protected:
    void SetUp() override {
        folder.Write("Vellumark.INI", "REPOSITORY=" + folder.Path() + "\nVALUES=" + folder.Path() +
                                          "\nVM_DATABASES=" + folder.Path("databases") + "\n");
        ASSERT_EQ(Run({"init"}).status, 0);
    }

    CliResult Run(std::vector<std::string> words, const std::function<void()>& prepare = {}) {
        words.insert(words.begin(), {"--settings", folder.Path("Vellumark.INI")});
        return RunCli(words, prepare);
    }

    // Status, standard output and standard error.
    std::string Outcome(const std::vector<std::string>& words, const std::function<void()>& prepare = {}) {
        const CliResult result = Run(words, prepare);
        return std::to_string(result.status) + " " + result.out + result.err;
    }

    TempFolder folder;
    std::string shop = MakeEmbedded(folder.Path("shop.mdb"),
                                    "create table Customer (Id INTEGER primary key, Name VARCHAR(12));");
};

std::vector<std::string> With(std::vector<std::string> words, const std::vector<std::string>& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

TEST_F(ConnectionCommands, ListsDataSources) {
    EXPECT_EQ(Run({"dsn", "list"}).out, "ghosts  Ghost Driver\nshop    SQLite3\n");
}

TEST_F(ConnectionCommands, ListsAndDeletesConnections) {
    ASSERT_EQ(Run({"read", "Shop", "--type", "Jet", "--mdb", shop}).status, 0);
    const std::string scenario = "Scenario to create data";
    ASSERT_EQ(Run({"rule", "add", "Shop", scenario, "Customer"}).status, 0);
    const std::vector<std::string> source = {"source", "Shop", scenario, "1", "Name"};
    ASSERT_EQ(Run(With(source, {"--kind", "database", "--type", "Jet", "--mdb", shop, "--table", "Customer",
                                "--source-column", "Name"}))
                  .status,
              0);
    const std::string ofSchema =
        "1\tShop (Source) - DBMS: 'Jet' MDB: 'shop.mdb'\tSource of Shop\n"
        "2\tShop (Target) - DBMS: 'Jet' MDB: 'shop.mdb'\tTarget of Shop\n";
    const std::string ofRule = "3\tDBMS: 'Jet' MDB: 'shop.mdb' Table: 'Customer' Column: 'Name'\t";
    EXPECT_EQ(Run({"connections"}).out, ofRule + "Customer.Name in Shop, " + scenario + "\n" + ofSchema);
    EXPECT_EQ(Outcome({"-y", "connection", "delete", "2"}),
              "1 exclamation: Unable to delete this connection\nIt is being used by database Shop\n");
    EXPECT_EQ(Outcome({"-y", "connection", "delete", "3"}),
              "1 exclamation: Unable to delete this connection\nIt has been selected for use in data "
              "generation.\n");
    EXPECT_EQ(Outcome({"-y", "connection", "delete", "9"}), "1 exclamation: There is no Connection 9.\n");

    dao::OpenDatabase(folder.Path("Vellumark.mdb"), ";pwd=quillfern")
        .Execute("update [TSO Insert Column Rule] set [Code Generate Data Type] = 'G'");
    EXPECT_EQ(Run({"connections"}).out, ofRule + "not used\n" + ofSchema);
    EXPECT_EQ(Outcome({"connection", "delete", "3"}),
              "1 question: Do you really want to delete this Connection?\n");
    EXPECT_EQ(Outcome({"--yes", "connection", "delete", "3"}),
              "0 question: Do you really want to delete this Connection?\n");
    EXPECT_EQ(Run({"connections"}).out, ofSchema);
}

TEST_F(ConnectionCommands, TestSaysWhatIsAtTheOtherEnd) {
    const std::vector<std::vector<std::string>> ways = {
        {"--type", "Jet", "--mdb", shop},
        {"--type", "Other", "--access", "odbc", "--protocol", "dao", "--dsn", "shop", "--database", shop},
        {"--type", "Other", "--connection-string", "DRIVER={SQLite3};DATABASE=" + shop},
    };
    for (const auto& way : ways) {
        const CliResult result = Run(With({"connection", "test"}, way));
        EXPECT_EQ(result.status, 0) << ::testing::PrintToString(way);
        EXPECT_TRUE(result.out.starts_with("connected: SQLite 3.")) << result.out;
        EXPECT_EQ(result.err, "");
    }
    EXPECT_EQ(Run({"connections"}).out, "");
}

// Reading and testing fail alike, and a failed read leaves nothing.
TEST_F(ConnectionCommands, SaysWhichDriverIsMissing) {
    const std::string notFound = "Error: 3706 Provider cannot be found. ";
    const std::string installed = " Installed are: SQLite3, Ghost Driver.";
    const struct {
        std::vector<std::string> words;
        std::string error;
    } cases[] = {
        {{"--type", "MS/SQL Server", "--server", "s"},
         notFound +
             "No driver is installed for the provider 'sqloledb'. Please install the package tdsodbc or "
             "Microsoft's msodbcsql18." +
             installed},
        {{"--type", "Oracle", "--server", "s", "--database", "d"},
         notFound +
             "No driver is installed for the provider 'MSDAORA'. Please install Oracle's Instant Client with "
             "its ODBC part." +
             installed},
        {{"--type", "DB2 Universal Database", "--database", "d"},
         notFound +
             "No driver is installed for the provider 'DB2OLEDB'. Please install IBM's Data Server Driver "
             "for "
             "ODBC and CLI." +
             installed},
        {{"--type", "Other", "--access", "odbc", "--dsn", "gone"},
         notFound + "No data source 'gone' is set up. Please define it in odbc.ini."},
        {{"--type", "Jet", "--access", "odbc"},
         notFound + "The connection string names no driver and no data source."},
        {{"--type", "Other", "--access", "odbc", "--dsn", "ghosts"},
         "Error: 3146 [01000] [unixODBC][Driver Manager]Can't open lib '/nowhere/libghost.so' : file not "
         "found"},
        {{"--type", "Other", "--connection-string", "DRIVER={Firebird};UID=u"},
         notFound +
             "The driver 'Firebird' is not installed. Please install it, with an entry in odbcinst.ini." +
             installed},
        {{"--type", "Other", "--connection-string", "DRIVER={MariaDB Unicode};UID=u"},
         notFound +
             "The driver 'MariaDB Unicode' is not installed. Please install the package odbc-mariadb." +
             installed},
    };
    for (const auto& c : cases) {
        const std::vector<std::string> words = With(c.words, {"--password", "se;cret"});
        const std::string error = "1 exclamation: " + c.error + "\n";
        EXPECT_EQ(Outcome(With({"connection", "test"}, words)), error);
        EXPECT_EQ(Outcome(With({"read", "New"}, words)),
                  error + "exclamation: Cannot connect to source database.\n");
    }
    EXPECT_EQ(Run({"schemas"}).out + Run({"connections"}).out, "");
}

void Environment(const char* password) {
    setenv("VELLUMARK_PASSWORD", password, 1);
}

void StandardInput(const std::string& path) {
    dup2(open(path.c_str(), O_RDONLY), STDIN_FILENO);
}

TEST_F(ConnectionCommands, TakesThePasswordFromWhereItIsSafe) {
    const std::string locked = folder.Path("locked.mdb");
    dao::CreateDatabase(locked, "p w;}");
    const std::vector<std::string> string = {"connection",
                                             "test",
                                             "--type",
                                             "Jet",
                                             "--connection-string",
                                             "driver={Microsoft Access Driver (*.mdb)};DBQ=" + locked};
    const std::vector<std::string> composed = {"connection", "test", "--type", "Jet", "--mdb", locked};
    const std::string connected = "0 connected: SQLite";
    const std::string wrong = "1 exclamation: Error: 3031 Not a valid password.\n";
    const std::string typed = folder.Write("typed.txt", "p w;}\nmore\n");
    const std::string typedInBraces = folder.Write("braces.txt", "{p w;}}}\n");
    const struct {
        std::vector<std::string> words;
        std::function<void()> prepare;
        std::string outcome;
    } cases[] = {
        {string, {}, wrong},
        {string, [] { Environment("p w;}"); }, connected},
        {composed, [] { Environment("{p w;}}}"); }, connected},
        {string, [] { Environment("other"); }, wrong},
        {With(string, {"--password", "other"}), [] { Environment("p w;}"); }, wrong},
        {With(string, {"--ask-password"}), [&] { StandardInput(typed); }, connected},
        {With(composed, {"--ask-password"}), [&] { StandardInput(typedInBraces); }, connected},
        {With(string, {"--ask-password"}), [] { StandardInput("/dev/null"); },
         "1 exclamation: No password was given.\n"},
    };
    for (const auto& c : cases) {
        const std::string outcome = Outcome(c.words, c.prepare);
        EXPECT_EQ(outcome.substr(0, c.outcome.size()), c.outcome) << ::testing::PrintToString(c.words);
    }
    EXPECT_EQ(Run(With(composed, {"--ask-password", "--password", "x"})).status, 2);
    EXPECT_EQ(Outcome(With({"read", "Locked"}, {"--type", "Jet", "--mdb", locked, "--ask-password"}),
                      [&] { StandardInput(typedInBraces); }),
              "0 read 0 tables into Locked\n");
}

bool Echoes(int terminal) {
    termios settings = {};
    return tcgetattr(terminal, &settings) != 0 || (settings.c_lflag & ECHO) != 0;
}

// A terminal whose keys are typed once it has stopped to show them.
class TypingTerminal {
 public:
    explicit TypingTerminal(const std::string& keys) : terminal_(posix_openpt(O_RDWR | O_NOCTTY)) {
        grantpt(terminal_);
        unlockpt(terminal_);
        user_ = open(ptsname(terminal_), O_RDWR | O_NOCTTY);
        typing_ = std::thread([this, keys] {
            for (int tries = 0; Echoes(user_) && tries < 10000; ++tries)
                usleep(1000);
            EXPECT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
        });
    }
    ~TypingTerminal() {
        typing_.join();
        close(user_);
        close(terminal_);
    }
    TypingTerminal(const TypingTerminal&) = delete;
    TypingTerminal& operator=(const TypingTerminal&) = delete;

    int User() const { return user_; }

 private:
    int terminal_;
    int user_ = -1;
    std::thread typing_;
};

TEST_F(ConnectionCommands, AsksForThePasswordUnseen) {
    const std::string locked = folder.Path("locked.mdb");
    dao::CreateDatabase(locked, "secret");
    const struct {
        std::string keys;
        int status;
        std::string err;
    } cases[] = {
        {"secret\n", 0, "Password: \n"},
        {"sacred\n", 1, "Password: \nexclamation: Error: 3031 Not a valid password.\n"},
        {"\x04", 1, "Password: \nexclamation: No password was given.\n"},
    };
    for (const auto& c : cases) {
        const TypingTerminal terminal(c.keys);
        const CliResult result =
            Run({"connection", "test", "--type", "Jet", "--mdb", locked, "--ask-password"},
                [&] { dup2(terminal.User(), STDIN_FILENO); });
        EXPECT_EQ(result.status, c.status);
        EXPECT_EQ(result.err, c.err);
        EXPECT_TRUE(Echoes(terminal.User()));
    }
}

TEST_F(ConnectionCommands, LoadsATableFromText) {
    const std::string rows = folder.Write("rows.txt", "1|one\r\n2|two\r\n");
    const auto load = [&](const std::string& table, const std::string& file) {
        return Outcome({"load-table", "--mdb", shop, "--table", table, "--file", file, "--delimiter", "|"});
    };
    EXPECT_EQ(load("Customer", rows), "0 2 rows\ninformation: Table loaded\n");
    const std::string bad = folder.Write("bad.txt", "3|three\r\nfour|four\r\n");
    EXPECT_EQ(
        load("Customer", bad),
        "1 exclamation: Unexpected error occurred loading Jet table.\n\nError: 13 Row 2: column Id: 'four' "
        "is no whole number\nexclamation: Table not loaded\n");
    EXPECT_EQ(RowsOf(dao::OpenDatabase(shop), "select * from [Customer]"), "1|one\n2|two");
    EXPECT_EQ(Run({"load-table", "--mdb", shop, "--table", "Customer", "--file", rows}).status, 2);
}

}  // namespace
}  // namespace vellumark::test
