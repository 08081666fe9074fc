#include <QAbstractButton>
#include <QTreeView>
#include <algorithm>
#include <cstdlib>

#include "app/frmMain.h"
#include "repository/modVellumark.h"
#include "schema/modDatabaseConnection.h"
#include "screen_test.h"
#include "servers.h"

namespace vellumark::test {

namespace {

// The machine's own drivers in place of the private settings that the other tests of screens have. The test
// runs in a process of its own, beside the servers.
class ServerRoadTest : public ScreenTest {
 protected:
    void SetUp() override {
        if (std::getenv("VELLUMARK_SERVERS") == nullptr)
            GTEST_SKIP() << "needs the servers of the test run";
        unsetenv("ODBCSYSINI");
        unsetenv("ODBCINI");
        ScreenTest::SetUp();
    }
};

TEST_F(ServerRoadTest, FromNothingToRowsInAServer) {
    ServerDatabase database(Engine::PostgreSQL);
    database.Run("create table person (id integer primary key, name varchar(20) not null, born date);");
    frmMain main;
    main.show();
    WhenShown("frmDatabaseConnection", [&](QWidget& connection) {
        Type(connection, "txtName", "People");
        Child<QAbstractButton>(connection, "optOther").click();
        Child<QAbstractButton>(connection, "optOverride").click();
        Type(connection, "txtConnectionString", database.ConnectionString());
        Click(connection, "cmdTest");
        Click(connection, "cmdOK");
    });
    RunCommand(main, "ID_NewDB");
    EXPECT_NE(recorder.Take().find("PostgreSQL"), std::string::npos);
    EXPECT_EQ(Rows("select [Name] from [Table]"), "person");

    RunCommand(main, "ID_TbtEdit");
    const auto named = [&](const char* name) -> QWidget& {
        const QWidgetList shown = QApplication::topLevelWidgets();
        return **std::ranges::find_if(shown, [name](const QWidget* window) {
            return window->isVisible() && window->objectName() == name;
        });
    };
    QWidget& rules = named("frmTTR");
    auto& tables = Child<QTreeView>(rules, "TListTSO");
    tables.setCurrentIndex(tables.model()->index(0, 0, tables.model()->index(0, 0)));
    Click(rules, "cmdAdd");
    Click(rules, "cmdGenerate");
    QWidget& generate = named("frmGenerateData");
    RunCommand(main, "ID_DBSConnect");
    EXPECT_EQ(TargetConnectionState, 'C');
    Child<QAbstractButton>(generate, "optDatabase").click();
    Choose(generate, "cboDatabase", "Sybase");
    Click(generate, "cmdGenerateData");
    EXPECT_EQ(recorder.Take(), "");
    const auto rows = TargetConnections.ado.OpenRecordset("select count(*), min(id), max(id) from person");
    EXPECT_EQ(TextOf(*rows), "100|1|100");
}

}  // namespace

}  // namespace vellumark::test
