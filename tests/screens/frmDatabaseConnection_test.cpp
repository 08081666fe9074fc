#include "schema/screens/frmDatabaseConnection.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <filesystem>
#include <gmock/gmock.h>

#include "embedded.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionRows.h"
#include "schema/modDatabaseConnection.h"
#include "schema/screens/connectionStringEdit.h"
#include "schema/screens/frmDataLink.h"
#include "screen_test.h"
#include "test_files.h"

namespace vellumark::test {

namespace {

constexpr const char* kJetString = "driver={Microsoft Access Driver (*.mdb)};UID=;PWD=;DBQ=";

class DatabaseConnectionTest : public ScreenTest {
 protected:
    void TearDown() override {
        ScreenTest::TearDown();
        ValueConnectionId = 0;
        ConnectionForm = {};
        DatabaseProtocol = 'A';
    }

    static void Show(QWidget& form) {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        QTest::qWait(10);
    }
    std::string ShopFile() {
        return MakeEmbedded(folder.Path("files/shop.mdb"), ReadFile(Sample("shop.sql")));
    }
    // The string as it is, behind what the screen shows of it.
    static std::string String(const QWidget& form) {
        return Child<ConnectionStringEdit>(form, "txtConnectionString").String();
    }
    static std::string ShownString(const QWidget& form) { return TextOf(form, "txtConnectionString"); }

    void SetUp() override {
        ScreenTest::SetUp();
        std::filesystem::create_directories(folder.Path("files"));
    }
};

TEST_F(DatabaseConnectionTest, AnEmptyProgramReadsItsFirstSchema) {
    const std::string file = ShopFile();
    frmDatabaseConnection form(kConnectNew);
    Show(form);
    EXPECT_EQ(form.windowTitle(), "New Database Connection Details");
    EXPECT_FALSE(IsShown(form, "grpTable"));
    EXPECT_FALSE(IsShown(form, "cmdViewData"));
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "exclamation: Please enter a unique name to save this database in Vellumark");
    EXPECT_TRUE(form.isVisible());

    QTest::keyClicks(QApplication::focusWidget(), "Web shop");
    Press(form, Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), "Orders");
    picker.answers = {std::nullopt, file};
    Click(form, "cmdBrowseMDB");
    EXPECT_EQ(ShownString(form), kJetString);
    Click(form, "cmdBrowseMDB");
    EXPECT_EQ(picker.requests.front().start, Rows("select [Dir Jet MDB] from [Options]"));
    EXPECT_EQ(ShownString(form), kJetString + file);
    Press(*QApplication::focusWidget(), Qt::Key_Return);

    EXPECT_EQ(recorder.Take(), "");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(
        recorder.statuses,
        (std::vector<std::string>{"", "Reading Database Definition", "Reading in database tables and columns",
                                  "Setting defaults", "Creating default Insert Scenario", ""}));
    EXPECT_EQ(SessionState, kOpenWithScenario);
    EXPECT_EQ(ShownSchemaName + "|" + ShownSchemaDescription, "Web shop|Orders");
    EXPECT_EQ(Count("Table"), 6);
    EXPECT_EQ(Count("Test Scenario", "[Id] > 0"), 2);
    EXPECT_EQ(Rows("select [Description] from [Database Connection] order by [Id]"),
              "Web shop (Source) - DBMS: 'Jet' MDB: 'shop.mdb'\n"
              "Web shop (Target) - DBMS: 'Jet' MDB: 'shop.mdb'");
}

TEST_F(DatabaseConnectionTest, AReadThatFailsKeepsTheScreenAndNothingElse) {
    frmDatabaseConnection form(kConnectNew);
    Show(form);
    Type(form, "txtName", "Shop");
    Type(form, "txtMDB", folder.Path("none.mdb"));
    Click(form, "cmdOK");
    EXPECT_THAT(recorder.Take(), ::testing::EndsWith("exclamation: Cannot connect to source database."));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(TextOf(form, "txtName"), "Shop");
    EXPECT_EQ(Count("Database") + Count("Database Connection"), 0);
    EXPECT_FALSE(std::filesystem::exists(JoinPath(DatabasesFolder, "Shop.dbs")));
    Press(form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(DatabaseConnectionTest, OptionsOpenAndClearTheirFields) {
    const std::vector<std::pair<const char*, const char*>> fields = {
        {"txtDSN", "dsn "},          {"cmdBrowseDSN", "browse "}, {"txtMDB", "mdb "},
        {"cmdBrowseMDB", "browse "}, {"txtServer", "server "},    {"txtDatabase", "database "},
        {"txtOwner", "owner "},      {"txtIgnoreOwner", "io "},   {"txtIgnoreTable", "it "},
        {"txtUserId", "user "},      {"txtPassword", "password "}};
    const struct {
        const char* dbms;
        const char* access;
        std::string open;
        std::string prefixes;  // under DAO
    } cases[] = {
        {"optJet", "optODBC", "dsn browse database user password ", "|msys"},
        {"optSQLServer", "optODBC", "dsn browse database owner user password ", "|sys"},
        {"optOracle", "optODBC", "dsn browse owner user password ", "sys|"},
        {"optDB2", "optODBC", "dsn browse database owner user password ", "sys|sys"},
        {"optOther", "optDirect", "server database owner user password ", "|sys"},
        {"optOracle", "optDirect", "server database owner user password ", "sys|"},
        {"optJet", "optDirect", "mdb browse server user password ", "|msys"},
    };
    frmDatabaseConnection form(kConnectNew);
    Show(form);
    const auto open = [&] {
        std::string names;
        for (const auto& [field, name] : fields) {
            const bool isField = qobject_cast<QLineEdit*>(&Child(form, field)) != nullptr;
            names += IsEnabled(form, field) ? name : isField && !TextOf(form, field).empty() ? "left " : "";
        }
        return names;
    };
    for (const auto& c : cases) {
        for (const auto& [field, name] : fields)
            if (IsEnabled(form, field) && qobject_cast<QLineEdit*>(&Child(form, field)) != nullptr)
                Type(form, field, "x");
        Click(form, c.dbms);
        Click(form, c.access);
        EXPECT_EQ(open(), c.open) << c.dbms << c.access;
        Click(form, "optDAO");
        EXPECT_EQ(TextOf(form, "txtIgnoreOwner") + "|" + TextOf(form, "txtIgnoreTable"), c.prefixes);
        EXPECT_TRUE(Child<QRadioButton>(form, "optDAO").isChecked());
        const bool refused = std::string(c.access) == "optDirect" && std::string(c.dbms) == "optOracle";
        EXPECT_EQ(recorder.Take().empty(), !refused) << c.dbms;
    }
    EXPECT_FALSE(Child(form, "txtDSN").isEnabled());
    Click(form, "optSQLServer");
    EXPECT_TRUE(Child<QRadioButton>(form, "optADO").isChecked());
}

TEST_F(DatabaseConnectionTest, TheStringFollowsTheFieldsAndHidesThePassword) {
    frmDatabaseConnection form(kConnectNew);
    Show(form);
    auto& string = Child<ConnectionStringEdit>(form, "txtConnectionString");
    EXPECT_TRUE(string.isReadOnly());
    EXPECT_FALSE(IsEnabled(form, "cmdDataLink"));
    Click(form, "optSQLServer");
    Type(form, "txtServer", "srv");
    Type(form, "txtUserId", "me");
    Type(form, "txtPassword", "p;w");
    Type(form, "txtDatabase", "a;b");
    EXPECT_EQ(Child<QLineEdit>(form, "txtPassword").echoMode(), QLineEdit::Password);
    EXPECT_EQ(String(form), "server=srv;UID=me;PWD=p;w;DATABASE=a;b;Provider = sqloledb");
    EXPECT_EQ(ShownString(form), "server=srv;UID=me;PWD=***;DATABASE=a;b;Provider = sqloledb");

    Click(form, "optDAO");
    EXPECT_EQ(recorder.Take(),
              "exclamation: No DAO provider available for a direct connection to MS/SQL\nPlease use ADO "
              "option or ODBC");
    Type(form, "txtServer", "other");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(String(form), "server=srv;UID=me;PWD=p;w;DATABASE=a;b;Provider = sqloledb");

    Click(form, "optOverride");
    EXPECT_FALSE(IsEnabled(form, "cmdDataLink"));
    Click(form, "optADO");
    EXPECT_TRUE(IsEnabled(form, "cmdDataLink"));
    EXPECT_NE(ShownString(form).find("PWD=***"), std::string::npos);
    Type(form, "txtConnectionString", "DSN=shop;PWD=typed");
    EXPECT_EQ(ShownString(form), "DSN=shop;PWD=typed");
    Press(string, Qt::Key_Tab);
    EXPECT_EQ(ShownString(form), "DSN=shop;PWD=***");
    Click(form, "optOracle");
    Type(form, "txtServer", "third");
    EXPECT_EQ(String(form), "DSN=shop;PWD=typed");
    Click(form, "optDefault");
    EXPECT_EQ(String(form), "User Id=me;Password=p;w;Data Source=a;b;Provider = MSDAORA;server=third");
}

TEST_F(DatabaseConnectionTest, TestSaysWhatAnswersOrWhyNothingDoes) {
    frmDatabaseConnection form(kConnectNew);
    Show(form);
    Type(form, "txtMDB", ShopFile());
    Press(*QApplication::focusWidget(), Qt::Key_T, Qt::AltModifier);
    QTRY_VERIFY(!recorder.shown.empty());
    EXPECT_THAT(recorder.Take(), ::testing::StartsWith("information: Connected to SQLite "));
    Type(form, "txtMDB", folder.Path("none.mdb"));
    Click(form, "cmdTest");
    EXPECT_THAT(recorder.Take(),
                ::testing::AllOf(::testing::StartsWith("exclamation: "), ::testing::HasSubstr("none.mdb")));
    EXPECT_FALSE(std::filesystem::exists(folder.Path("none.mdb")));
    Click(form, "optDB2");
    Type(form, "txtPassword", "secret");
    Click(form, "cmdTest");
    EXPECT_THAT(recorder.Take(),
                ::testing::AllOf(::testing::HasSubstr("Please install IBM's Data Server Driver"),
                                 ::testing::Not(::testing::HasSubstr("secret"))));
    EXPECT_EQ(TargetConnectionState, 'D');
}

TEST_F(DatabaseConnectionTest, TheTargetIsStoredAndConnected) {
    MakeSchema("Shop");
    {
        const RepositoryScope repository;
        fCreateTargetPlaceholder(1, "Shop");
        RepositoryDatabase.Execute("update [Database] set [FK CON Id Target] = 1");
    }
    const std::string file = ShopFile();
    frmDatabaseConnection form(kConnectTarget);
    Show(form);
    EXPECT_EQ(form.windowTitle(), "Target Database Connection Details");
    EXPECT_EQ(TextOf(form, "txtName"), "Shop");
    EXPECT_TRUE(Child<QLineEdit>(form, "txtName").isReadOnly());
    EXPECT_TRUE(Child<QRadioButton>(form, "optJet").isChecked());
    Click(form, "optDAO");
    Type(form, "txtMDB", file);
    Type(form, "txtIgnoreTable", "audit");
    WhenShown("frmViewData", [](QWidget& viewer) {
        EXPECT_GT(Child<QComboBox>(viewer, "cboTable").count(), 0);
        Click(viewer, "cmdClose");
    });
    Click(form, "cmdViewData");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(TargetConnectionState, 'D');
    EXPECT_EQ(ConnectionForm.mdbFile, file);
    Click(form, "cmdCancel");
    EXPECT_EQ(Rows("select [MDB File] is null from [Database Connection]"), "1");

    frmDatabaseConnection again(kConnectTarget);
    Show(again);
    Click(again, "optDAO");
    Type(again, "txtMDB", file);
    Type(again, "txtIgnoreTable", "audit");
    Click(again, "cmdOK");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_FALSE(again.isVisible());
    EXPECT_EQ(TargetConnectionState, 'C');
    EXPECT_EQ(DatabaseProtocol, 'D');
    frmDatabaseConnection stored(kConnectTarget);
    EXPECT_EQ(TextOf(stored, "txtMDB") + "|" + TextOf(stored, "txtIgnoreTable"), file + "|audit");
    EXPECT_EQ(String(stored), file);

    // What can't be reached is stored all the same, and the former Target is let go.
    Show(stored);
    Type(stored, "txtMDB", folder.Path("none.mdb"));
    Click(stored, "cmdOK");
    EXPECT_FALSE(stored.isVisible());
    EXPECT_NE(recorder.Take(), "");
    EXPECT_EQ(TargetConnectionState, 'D');
    EXPECT_FALSE(TargetConnections.dao.IsOpen());
}

TEST_F(DatabaseConnectionTest, AValueSourceTakesATableAndAColumn) {
    MakeSchema("Shop");
    const std::string file = ShopFile();
    frmDatabaseConnection form(kConnectValue, nullptr, "Order Line", "CustomerId");
    Show(form);
    EXPECT_EQ(form.windowTitle(), "Select Database Source for: ORDER LINE customerid");
    EXPECT_FALSE(IsShown(form, "txtName"));
    auto& tables = Child<QComboBox>(form, "cboTable");
    EXPECT_EQ(tables.placeholderText(), "Press Refresh to select a table");
    Type(form, "txtMDB", file);
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "exclamation: Please select a table");
    EXPECT_EQ(QApplication::focusWidget(), &tables);
    Click(form, "cmdRefresh");
    EXPECT_EQ(tables.currentIndex(), -1);
    Choose(form, "cboTable", "Customer");
    EXPECT_EQ(Child<QComboBox>(form, "cboColumn").count(), 8);
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "exclamation: Please select a column");
    EXPECT_EQ(QApplication::focusWidget(), &Child(form, "cboColumn"));
    Choose(form, "cboColumn", "LastName");
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(ValueConnectionId, 1);
    EXPECT_EQ(Rows("select [Description], [Table], [Column] from [Database Connection]"),
              " DBMS: 'Jet' MDB: 'shop.mdb' Table: 'Customer' Column: 'LastName'|Customer|LastName");

    frmDatabaseConnection stored(kConnectValue, nullptr, "Order Line", "CustomerId");
    Show(stored);
    EXPECT_EQ(TextOf(stored, "cboTable") + "." + TextOf(stored, "cboColumn"), "Customer.LastName");
    EXPECT_EQ(Child<QComboBox>(stored, "cboTable").count(), 6);
    Choose(stored, "cboTable", "Payment");
    EXPECT_EQ(TextOf(stored, "cboColumn"), "");

    // A database that is gone leaves what was stored.
    std::filesystem::remove(file);
    frmDatabaseConnection gone(kConnectValue, nullptr, "Order Line", "CustomerId");
    Show(gone);
    EXPECT_NE(recorder.Take(), "");
    EXPECT_EQ(TextOf(gone, "cboTable") + "." + TextOf(gone, "cboColumn"), "Customer.LastName");
    EXPECT_EQ(TargetConnectionState, 'D');
}

TEST_F(DatabaseConnectionTest, AnotherConnectionADataSourceAndALinkFillTheFields) {
    ConnectionDetails previous;
    previous.dbmsType = kDbmsOther;
    previous.useODBC = true;
    previous.dsn = "ghosts";
    previous.userId = "me";
    previous.table = "T";
    previous.description = ValueDescription(previous);
    AddConnection(1, previous);
    frmDatabaseConnection form(kConnectNew);
    Show(form);
    Type(form, "txtName", "Mine");
    WhenShown("frmCONList", [](QWidget& list) { Click(list, "cmdCancel"); });
    Click(form, "cmdPrevious");
    EXPECT_EQ(String(form), kJetString);
    WhenShown("frmCONList", [](QWidget& list) { Press(list, Qt::Key_Return); });
    Click(form, "cmdPrevious");
    EXPECT_EQ(TextOf(form, "txtName"), "Mine");
    EXPECT_EQ(String(form), "DSN=ghosts;UID=me;PWD=;DATABASE=");

    WhenShown("frmDSNList", [](QWidget& list) {
        Press(Child(list, "grdSources"), Qt::Key_Down);
        Click(list, "cmdSelect");
    });
    Click(form, "cmdBrowseDSN");
    EXPECT_EQ(TextOf(form, "txtDSN"), "shop");

    Click(form, "optOverride");
    WhenShown("frmDataLink", [](QWidget& link) {
        EXPECT_EQ(TextOf(link, "cboDriver"), "");
        Type(link, "txtPassword", "p;w");
        Press(link, Qt::Key_Return);
    });
    Click(form, "cmdDataLink");
    EXPECT_EQ(String(form), "DSN=shop;UID=me;PWD={p;w}");
    WhenShown("frmDataLink", [](QWidget& link) {
        Type(link, "txtPassword", "other");
        Press(link, Qt::Key_Escape);
    });
    Click(form, "cmdDataLink");
    EXPECT_EQ(String(form), "DSN=shop;UID=me;PWD={p;w}");
}

}  // namespace

}  // namespace vellumark::test
