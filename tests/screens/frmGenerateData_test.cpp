#include "engine/screens/frmGenerateData.h"

#include <QComboBox>
#include <QProgressBar>
#include <QRadioButton>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>

#include "embedded.h"
#include "platform/screens/boxDialogs.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "schema/modDatabaseConnection.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

// An Insert Scenario "Fill" and a Delete Scenario "Empty" for the table Supplier of the shop.
class FrmGenerateDataTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        ReadShop();
        supplier = std::stoi(Rows("select [Id] from [Table] where [Name] = 'Supplier'"));
        CurrentScenarioTab = ScenarioTab::Delete;
        ASSERT_TRUE(CreateScenario("Empty"));
        AddDeleteTableRule(supplier, "where SupplierId > 2");
        CurrentScenarioTab = ScenarioTab::Insert;
        ASSERT_TRUE(CreateScenario("Fill"));
        path = folder.Path("out.sql");
        ProgramStarter = [this](const std::vector<std::string>& command) { started.push_back(command); };
    }
    void TearDown() override {
        AutoConnect = false;
        ProgramStarter = platform::StartDetached;
        ScreenTest::TearDown();
    }

    void AddRows(int rows) { AddTableRule(supplier, 1, rows, true); }

    void Store(const std::string& sql) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(sql);
    }

    void ChooseFile(frmGenerateData& form, const std::string& format) {
        form.show();
        Click(form, "optTextFile");
        Choose(form, "cboDatabase", format);
        Type(form, "txtTextFile", path);
    }

    std::string Suppliers() {
        return RowsOf(dao::OpenDatabase(folder.Path("shop.mdb")),
                      "select [SupplierId], [Name] from [Supplier]");
    }

    int supplier = 0;
    std::string path;
    std::vector<std::vector<std::string>> started;
};

std::string Usable(const frmGenerateData& form) {
    std::string names;
    for (const char* name : {"optTextFile", "optDatabase", "cboDatabase", "txtTextFile", "cmdBrowseTextFile",
                             "cmdBrowseDBConnection"})
        if (IsEnabled(form, name))
            names += std::string(names.empty() ? "" : " ") + name;
    return names;
}

TEST_F(FrmGenerateDataTest, OpensAsSchemaAndScenarioSay) {
    const struct {
        char source;
        const char *style, *scenario, *comment, *format, *usable;
    } cases[] = {
        {'D', "", "Fill", "Generate SQL statements to INSERT data on the target database", "Jet",
         "optTextFile optDatabase cmdBrowseDBConnection"},
        {'D', "", "Empty", "Generate SQL statements to permanently DELETE data from the target database",
         "Jet", "optTextFile optDatabase cmdBrowseDBConnection"},
        {'T', "", "Fill", "Generate a delimited text file to load on to a Case Weaver Test Cases table",
         "Text File - Delimited", "optTextFile txtTextFile cmdBrowseTextFile"},
        {'R', "GUI Report", "Fill", "Generate a delimited text file for a Sheet Weaver EAB",
         "Text File - Delimited", "optTextFile txtTextFile cmdBrowseTextFile"},
        {'R', "Other", "Fill", "Generate a delimited text file to load on to Sheet Weaver table",
         "Text File - Delimited", "optTextFile txtTextFile cmdBrowseTextFile"},
        {'R', "Other", "Empty", "Generate SQL statements to permanently DELETE data from the target database",
         "Jet", "optTextFile optDatabase cmdBrowseDBConnection"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(1, c.source) + c.style + c.scenario);
        CurrentDBSSource = c.source;
        Store("update [Database] set [Sheet Weaver Style] = '" + std::string(c.style) + "'");
        OpenScenario(c.scenario);
        frmGenerateData form(nullptr);
        EXPECT_EQ(TextOf(form, "txtDB") + "." + TextOf(form, "txtTSO"), std::string("Shop.") + c.scenario);
        EXPECT_EQ(TextOf(form, "lblComment"), c.comment);
        EXPECT_EQ(TextOf(form, "cboDatabase"), c.format);
        EXPECT_EQ(Usable(form), c.usable);
        const bool insert = std::string(c.scenario) == "Fill";
        EXPECT_EQ(IsShown(form, "picInsert"), insert);
        EXPECT_EQ(IsShown(form, "picDelete"), !insert);
        EXPECT_EQ(IsShown(form, "lblQtyNumber"), insert);
        EXPECT_FALSE(IsShown(form, "picGen"));
    }
    CurrentDBSSource = 'D';
    CurrentDBSId = 99;
    const frmGenerateData lost(nullptr);
    EXPECT_EQ(recorder.Take(), "exclamation: Cannot open the Database identifier 99");
}

TEST_F(FrmGenerateDataTest, OffersOutputs) {
    Store("update [Options] set [Dir SQL] = '/sql/', [Dir Output Text Files] = '/text/'");
    {
        const frmGenerateData form(nullptr);
        EXPECT_EQ(TextOf(form, "txtTextFile"), "/text/DataFile1.txt");
    }
    Store("update [Options] set [Target DataBase] = 'Oracle'");
    frmGenerateData form(nullptr);
    form.show();
    EXPECT_EQ(TextOf(form, "txtTextFile"), "/sql/DataFile1.sql");
    Click(form, "optTextFile");
    EXPECT_EQ(Usable(form), "optTextFile optDatabase cboDatabase txtTextFile cmdBrowseTextFile");

    picker.answers = {std::nullopt, "/chosen.sql"};
    Click(form, "cmdBrowseTextFile");
    EXPECT_EQ(TextOf(form, "txtTextFile"), "/sql/DataFile1.sql");
    Choose(form, "cboDatabase", "Text File - Delimited");
    Type(form, "txtTextFile", "");
    Click(form, "cmdBrowseTextFile");
    EXPECT_EQ(TextOf(form, "txtTextFile"), "/chosen.sql");
    EXPECT_EQ(picker.requests[0].title + picker.requests[0].start, "Select SQL file/sql/DataFile1.sql");
    EXPECT_EQ(picker.requests[1].title + picker.requests[1].start, "Select text file/text/");

    Store("update [Database Connection] set [Type] = 'Other'");
    Click(form, "optDatabase");
    EXPECT_TRUE(IsEnabled(form, "cboDatabase"));
    EXPECT_EQ(TextOf(form, "cboDatabase"), "Text File - Delimited");

    OpenScenario("Empty");
    const frmGenerateData deletes(nullptr);
    EXPECT_EQ(Child<QComboBox>(deletes, "cboDatabase").findText("Text File - Delimited"), -1);
}

TEST_F(FrmGenerateDataTest, WritesFiles) {
    AddRows(3);
    frmGenerateData form(nullptr);
    ChooseFile(form, "Oracle");
    Click(form, "cmdViewFile");
    EXPECT_EQ(recorder.Take(), "exclamation: Text file does not exist");
    Click(form, "cmdGenerateData");
    EXPECT_NE(ReadFile(path).find("insert into Supplier"), std::string::npos) << recorder.Take();
    EXPECT_EQ(TextOf(form, "lblTABNumber") + "|" + TextOf(form, "lblQtyNumber"), "1|3");
    EXPECT_EQ(Child<QProgressBar>(form, "ProgressBar1").value(), 0);
    EXPECT_EQ(Child<QStatusBar>(form, "sbr").currentMessage(), "");
    EXPECT_TRUE(TextOf(form, "lblElapsed").starts_with("Elapsed: "));
    EXPECT_TRUE(IsEnabled(form, "cmdClose"));
    ASSERT_EQ(started.size(), 1U);
    EXPECT_EQ(started[0].back(), path);

    Store("update [Options] set [Flag Open SQL File With Editor] = 0");
    recorder.yesNoAnswers = {false, true};
    Choose(form, "cboDatabase", "Text File - Delimited");
    Click(form, "cmdGenerateData");
    EXPECT_NE(ReadFile(path).find("insert into"), std::string::npos);
    Click(form, "cmdGenerateData");
    EXPECT_EQ(ReadFile(path).find("insert into"), std::string::npos);
    EXPECT_EQ(started.size(), 1U);
    Click(form, "cmdViewFile");
    EXPECT_EQ(started.size(), 2U);

    OpenScenario("Empty");
    path = folder.Path("delete.sql");
    frmGenerateData deletes(nullptr);
    ChooseFile(deletes, "Sybase");
    recorder.Take();
    Click(deletes, "cmdGenerateData");
    EXPECT_NE(ReadFile(path).find("delete from Supplier where SupplierId > 2"), std::string::npos);
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(FrmGenerateDataTest, RunsAgainstTheTargetDatabase) {
    AddRows(3);
    frmGenerateData form(nullptr);
    form.show();
    Click(form, "cmdGenerateData");
    EXPECT_EQ(recorder.Take(), "exclamation: Please connect to the target database.");
    AutoConnect = true;
    Click(form, "cmdGenerateData");
    EXPECT_EQ(Suppliers(), "1|Name1\n2|Name2\n3|Name3");
    EXPECT_EQ(TargetConnectionState, 'C');

    OpenScenario("Empty");
    frmGenerateData deletes(nullptr);
    deletes.show();
    recorder.yesNoAnswers = {false, true};
    Click(deletes, "cmdGenerateData");
    EXPECT_EQ(Suppliers(), "1|Name1\n2|Name2\n3|Name3");
    Click(deletes, "cmdGenerateData");
    EXPECT_EQ(Suppliers(), "1|Name1\n2|Name2");
    EXPECT_TRUE(
        recorder.Take().ends_with("Do you really want to permanently delete data from the target database?"));
    EXPECT_TRUE(started.empty());
}

TEST_F(FrmGenerateDataTest, UnreachableDatabasesAreTold) {
    AddRows(3);
    AutoConnect = true;
    Store("update [Database Connection] set [Connection String] = 'DSN=none at all'");
    frmGenerateData form(nullptr);
    form.show();
    Click(form, "cmdGenerateData");
    EXPECT_TRUE(recorder.Take().ends_with("exclamation: Cannot connect to target database."));
    EXPECT_TRUE(IsEnabled(form, "cmdGenerateData"));
}

TEST_F(FrmGenerateDataTest, ShowsTheStatementThatFailed) {
    AddRows(3);
    AutoConnect = true;
    frmGenerateData form(nullptr);
    form.show();
    Click(form, "cmdGenerateData");
    BoxDialogs boxes;
    platform::UseDialogs(boxes);
    std::string message;
    WhenShown("frmQuestion", [](QWidget& question) { Click(question, "cmd1"); });
    WhenShown("", [&message](QWidget& box) {
        message = box.property("text").toString().toStdString();
        box.close();
    });
    Click(form, "cmdGenerateData");
    platform::UseDialogs(recorder);
    EXPECT_TRUE(message.starts_with("insert into ")) << message;
    EXPECT_TRUE(IsEnabled(form, "cmdGenerateData"));
}

TEST_F(FrmGenerateDataTest, MovesWhileRunningAndDoesNotAnswer) {
    constexpr int kRows = 500000;
    AddRows(kRows);
    QWidget behind;
    behind.show();
    frmGenerateData form(nullptr);
    ChooseFile(form, "Text File - Delimited");
    std::vector<int> rows, points;
    std::string step;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        rows.push_back(std::stoi(TextOf(form, "lblQtyNumber")));
        points.push_back(Child<QProgressBar>(form, "ProgressBar1").value());
        if (rows.back() == 0 || rows.back() == kRows)
            return;
        step = Child<QStatusBar>(form, "sbr").currentMessage().toStdString();
        EXPECT_TRUE(IsShown(form, "picGen"));
        EXPECT_FALSE(IsEnabled(form, "cmdGenerateData"));
        EXPECT_FALSE(form.close());
        EXPECT_FALSE(behind.close());
        QTest::keyClick(&form, Qt::Key_Escape);
        QTest::mouseClick(&Child<QWidget>(form, "cmdClose"), Qt::LeftButton);
    });
    look.start(0);
    Click(form, "cmdGenerateData");
    look.stop();
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(behind.isVisible());
    EXPECT_EQ(step, "Generating data");
    EXPECT_TRUE(std::ranges::is_sorted(rows));
    EXPECT_TRUE(std::ranges::any_of(points, [](int value) { return value > 0 && value < 100; }));
    EXPECT_EQ(TextOf(form, "lblQtyNumber"), std::to_string(kRows));
    const std::string written = ReadFile(path);
    EXPECT_EQ(std::ranges::count(written, '\n'), kRows + 2);  // two comments head the file
    EXPECT_TRUE(form.close());
}

TEST_F(FrmGenerateDataTest, FollowsTheSelectedScenario) {
    frmGenerateData form(nullptr);
    form.show();
    OpenScenario("Empty");
    form.activateWindow();
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(&form, &activated);
    EXPECT_EQ(TextOf(form, "txtTSO"), "Empty");
    EXPECT_TRUE(IsShown(form, "picDelete"));
}

}  // namespace

}  // namespace vellumark::test
