#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <dlfcn.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <sqlite3.h>

#include "model_files.h"
#include "repository/modVellumark.h"
#include "schema/screens/frmCaseWeaver.h"
#include "schema/screens/frmNewCOOLGen.h"
#include "schema/screens/frmSheetWeaver.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

namespace fs = std::filesystem;

const std::string kNoLibrary =
    "critical: Can not load Cool:Gen read API (eapi32w.dll)\nPlease make sure Cool:Gen read only API is "
    "installed properly.";

class GridWeaverTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        program_ = ProgramFolder;
        ProgramFolder = folder.Path("program") + "/";
        folder.Write("program/Drawbar/access.ini", "table=A\ncolumn=B\npermval=C\n");
        folder.Write("work/readme", "");
        fs::current_path(folder.Path("work"));
    }
    void TearDown() override {
        fs::current_path("/");
        ProgramFolder = program_;
        ScreenTest::TearDown();
    }

    static void Show(QWidget& form) {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    // A library that can be loaded, a model, and tools that hand out its prepared text files.
    void InstallTools() {
        Dl_info some = {};
        ASSERT_NE(dladdr(reinterpret_cast<const void*>(&sqlite3_libversion), &some), 0);
        fs::copy_file(some.dli_fname, folder.Path("program/eapi32w.dll"));
        ModelFiles().WriteTo(folder, "prepared");
        for (const std::string tool : {"table", "column", "permval"}) {
            const std::string path =
                folder.Write("program/Drawbar/" + tool + ".exe",
                             "#!/bin/sh\ncp '" + folder.Path("prepared/") + tool + ".txt' \"${4#out=}\"\n");
            fs::permissions(path, fs::perms::owner_all);
        }
        for (const char* file : {"IEF0000.DAT", "ief0700.dat", "ief1200.dat", "ief2511.dat"})
            folder.Write(std::string("model/") + file, "part");
    }

 private:
    std::string program_;
};

TEST_F(GridWeaverTest, AModelIsReadWithItsPermittedValues) {
    InstallTools();
    frmNewCOOLGen form;
    Show(form);
    EXPECT_EQ(form.windowTitle(), "Grid Weaver: Read COOL:Gen model");
    EXPECT_FALSE(IsShown(form, "lblAPI"));
    EXPECT_EQ(Child<QComboBox>(form, "cboDBMS").count(), 11);
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "exclamation: Please enter a unique name to save this database in Vellumark");
    QTest::keyClicks(QApplication::focusWidget(), "Bank");
    Type(form, "txtDescription", "A model");
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "exclamation: Please select the DBMS of the COOL:Gen model");
    Choose(form, "cboDBMS", "ORACLE");
    picker.answers = {folder.Path("model/IEF0000.DAT")};
    Click(form, "cmdBrowse");
    EXPECT_EQ(picker.requests[0].filter, "IEF0000.dat|IEF0000.DAT|All files (*.*)|*.*");
    EXPECT_EQ(picker.requests[0].start, Rows("select [Dir COOLGen Models] from [Options]"));
    Click(form, "chkPVs");
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(ShownSchemaName + "|" + ShownSchemaDescription + "|" + ShownModelName,
              "Bank|A model|SHOP MODEL");
    EXPECT_EQ(Count("Table"), 3);
    EXPECT_EQ(Count("Value Source"), 3);
}

TEST_F(GridWeaverTest, WithoutTheReadLibraryOnlyStandingFilesAreRead) {
    frmNewCOOLGen form;
    EXPECT_EQ(recorder.Take(), kNoLibrary);
    Show(form);
    EXPECT_FALSE(IsEnabled(form, "cmdOK"));
    EXPECT_EQ(TextOf(form, "lblAPI"), "Please make sure Cool:Gen read only API is installed properly.");
    Type(form, "txtName", "Bank");
    Type(form, "txtDescription", "kelpshore");
    Choose(form, "cboDBMS", "ORACLE");
    EXPECT_FALSE(IsEnabled(form, "cmdOK"));
    Type(form, "txtDescription", "KELPSHORE");
    ModelFiles().WriteTo(folder, "databases/Bank.dbs");
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(ShownSchemaName + "|" + ShownSchemaDescription, "Bank|KELPSHORE");
    EXPECT_TRUE(IsShown(form, "lblAPI"));
}

TEST_F(GridWeaverTest, ACaseWeaverFileIsShownAndRead) {
    frmCaseWeaver form;
    EXPECT_EQ(recorder.Take(), "exclamation: Please use Case Weaver to create the file: " +
                                   (fs::current_path() / "CWtoGW.txt").string());
    Show(form);
    EXPECT_FALSE(IsEnabled(form, "cmdOK"));
    const std::string file = folder.Write("tool/CWtoGW.txt",
                                          "x\r\nCAB Name: BANKING\r\nx\r\nx\r\nDatabase \"bank.mdb\"\r\nx\r\n"
                                          "x\r\nCOL Test_Cases case_id case_id X 8 0\r\n");
    picker.answers = {folder.Path("none.txt"), file};
    Click(form, "cmdBrowse");
    EXPECT_NE(recorder.Take(), "");
    EXPECT_FALSE(IsEnabled(form, "cmdOK"));
    Click(form, "cmdBrowse");
    EXPECT_EQ(TextOf(form, "txtModel") + "|" + TextOf(form, "txtDatabase") + "|" + TextOf(form, "txtFile"),
              "Case Weaver CAB: BANKING|bank.mdb|" + file);
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "exclamation: Please enter a unique name to save this database in Vellumark");
    QTest::keyClicks(QApplication::focusWidget(), "Bank");
    Press(*QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(ShownSchemaName + "|" + ShownModelName, "Bank|Case Weaver CAB: BANKING");
    EXPECT_EQ(Rows("select [MDB File] from [Database Connection]"), folder.Path("tool/bank.mdb"));
    EXPECT_EQ(Rows("select [Name] from [Column]"), "CASE_ID");
}

TEST_F(GridWeaverTest, ASheetWeaverFileInTheCurrentFolderIsReadAtOnce) {
    folder.Write("work/SWtoGWEABDef.txt",
                 "x\r\nEAB Name: PRICES\r\nx\r\nx\r\nDatabase: \"sheet.mdb\"\r\nStyle is R\r\n"
                 "Table is PRICE_LIST\r\nx\r\nx\r\nCOL item item_code X 6 0\r\n");
    frmSheetWeaver form;
    Show(form);
    EXPECT_EQ(TextOf(form, "txtModel") + "|" + TextOf(form, "txtStyle") + "|" + TextOf(form, "txtTable"),
              "Sheet Weaver EAB: PRICES|Delimited File Reader|PRICE_LIST");
    QTest::keyClicks(QApplication::focusWidget(), "Prices");
    Click(form, "cmdOK");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_EQ(ShownModelName, "Sheet Weaver EAB: PRICES");
    EXPECT_EQ(Rows("select [Name] from [Table]"), "PRICE_LIST");

    // A second of the same name is refused, and the screen stays as it was typed.
    frmSheetWeaver again;
    Show(again);
    QTest::keyClicks(QApplication::focusWidget(), "Prices");
    Click(again, "cmdOK");
    EXPECT_THAT(recorder.Take(),
                ::testing::StartsWith("exclamation: Database name already exists in Vellumark."));
    EXPECT_EQ(TextOf(again, "txtName"), "Prices");
    Press(again, Qt::Key_Escape);
    EXPECT_EQ(Count("Database"), 1);
}

}  // namespace

}  // namespace vellumark::test
