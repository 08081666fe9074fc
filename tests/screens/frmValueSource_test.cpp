#include "scenario/screens/frmValueSource.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <algorithm>

#include "platform/screens/rowGrid.h"
#include "repository/modVellumark.h"
#include "scenario/modGenericValues.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "screen_test.h"
#include "spreadsheet_files.h"

namespace vellumark::test {

namespace {

// The shop with a rule for customers.
class ValueSourceTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        ReadShop();
        rule_ = AddTableRule(1, 1, 20, true);
    }

    std::string SourceRow(const std::string& fields) {
        return Rows("select " + fields + " from [Value Source]");
    }

    // Opens the screen for a column and leaves it to `use`.
    void With(const std::string& column, const std::function<void(frmValueSource&)>& use) {
        frmValueSource form(*ReadColumnRule(rule_, column), nullptr);
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        use(form);
    }
    // Clicks View and gives what the values screen lists, joined by "|".
    std::string Viewed(frmValueSource& form) {
        std::string values;
        WhenShown("frmValuePreview", [&values](QWidget& preview) {
            const auto& list = Child<QListWidget>(preview, "lstValues");
            QStringList texts;
            for (int i = 0; i < list.count(); ++i)
                texts.append(list.item(i)->text());
            values = texts.join('|').toStdString();
            Click(preview, "cmdClose");
        });
        Click(form, "cmdView");
        return values;
    }
    static void Pick(QWidget& form, const char* option) { Child<QAbstractButton>(form, option).click(); }

    int rule_ = 0;
};

TEST_F(ValueSourceTest, ACategoryIsChosenWarnedOfAndStored) {
    With("Born", [this](frmValueSource& form) {
        EXPECT_EQ(form.windowTitle(), "Alternate Data Source for: Customer Born");
        EXPECT_EQ(TextOf(form, "txtEndRow"), "999999999");
        EXPECT_FALSE(IsEnabled(form, "txtReadInt"));
        Click(form, "cmdOK");
        EXPECT_EQ(recorder.Take(), "exclamation: Please select a Vellumark Category of Values");
        WhenShown("frmVLEMaintenance", [](QWidget& choice) {
            EXPECT_EQ(choice.windowTitle(), "Select a Generic Value Category for: Born");
            Child<RowGrid>(choice, "grdCategories").SelectId(CategoryId("First names"));
            Click(choice, "cmdClose");
        });
        Click(form, "cmdCategory");
        EXPECT_EQ(
            recorder.Take(),
            "information: You have selected a Category of 'Character' datatype for a Column with 'Date' "
            "datatype!");
        EXPECT_EQ(TextOf(form, "txtCategory"), "First names");
        const std::string names = Viewed(form);
        EXPECT_EQ(std::ranges::count(names, '|'), 99) << names;
        Click(form, "cmdOK");
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_EQ(SourceRow("[Type], [FK CAT Id] = " + std::to_string(CategoryId("First names")) +
                        ", [Read File Order], [If End of File], [FK TTR Id], [FK TSO Id]"),
              "V|1|R|L|1|2");
    EXPECT_EQ(Count("TSO Insert Column Rule", "[Code Generate Data Type] = 'V'"), 1);
}

TEST_F(ValueSourceTest, KindsOpenTheirFields) {
    const struct {
        const char* option;
        std::vector<const char*> open;
        const char *startColumn, *field;
    } cases[] = {
        {"optTxtDelF", {"txtNamePath", "cmdBrowse", "txtDelimiter", "txtDelFNum"}, "", "1"},
        {"optTxtPosF", {"txtNamePath", "cmdBrowse", "txtStartCol", "txtEndCol"}, "1", ""},
        {"optExcel",
         {"txtNamePath", "cmdBrowse", "txtExcel", "txtStartCol", "txtEndCol", "txtColTerminator",
          "txtRowTerminator"},
         "1",
         ""},
        {"optDatabase", {"txtOtherDB", "cmdBrowseDB"}, "", ""},
        {"optGenValF", {"txtCategory", "cmdCategory"}, "", ""},
    };
    With("Born", [&](frmValueSource& form) {
        for (const auto& c : cases) {
            Type(form, "txtStartRow", "7");
            Pick(form, c.option);
            for (const char* name : {"txtCategory", "cmdCategory", "txtNamePath", "cmdBrowse", "txtExcel",
                                     "txtDelimiter", "txtDelFNum", "txtOtherDB", "cmdBrowseDB", "txtStartCol",
                                     "txtEndCol", "txtColTerminator", "txtRowTerminator"})
                EXPECT_EQ(IsEnabled(form, name),
                          std::ranges::find_if(
                              c.open, [&](const char* open) { return std::string_view(open) == name; }) !=
                              c.open.end())
                    << c.option << " " << name;
            EXPECT_EQ(TextOf(form, "txtStartCol"), c.startColumn) << c.option;
            EXPECT_EQ(TextOf(form, "txtDelFNum"), c.field) << c.option;
            EXPECT_EQ(TextOf(form, "txtStartRow"), "1") << c.option;
        }
        EXPECT_TRUE(IsEnabled(form, "cmdVSDateEdPat"));
        Choose(form, "cboReadFOrd", "Sequential");
        EXPECT_TRUE(IsEnabled(form, "cboEOF"));
        Choose(form, "cboEOF", "Stop");
        Choose(form, "cboReadFOrd", "Random");
        EXPECT_EQ(TextOf(form, "cboEOF"), "Loop");
        EXPECT_FALSE(IsEnabled(form, "cboEOF"));
    });
    With("LastName", [](frmValueSource& form) { EXPECT_FALSE(IsEnabled(form, "cmdVSDateEdPat")); });
}

TEST_F(ValueSourceTest, ADelimitedFileIsViewedAndStoredAndShownAgain) {
    const std::string file = folder.Write("in.txt", "1;Ann\n2;Bob\n3;Cid\n");
    With("LastName", [&](frmValueSource& form) {
        Pick(form, "optTxtDelF");
        picker.answers = {file};
        Click(form, "cmdBrowse");
        Type(form, "txtDelimiter", ";");
        Type(form, "txtDelFNum", "2");
        Choose(form, "cboReadFOrd", "Sequential");
        Choose(form, "cboEOF", "Stop");
        Type(form, "txtStartRow", "2");
        EXPECT_EQ(Viewed(form), "Bob|Cid");
        EXPECT_EQ(Count("Value Source"), 0);
        EXPECT_EQ(Count("TSO Insert Column Rule", "[Code Generate Data Type] = 'V'"), 0);
        recorder.Take();
        Click(form, "cmdOK");
    });
    EXPECT_EQ(
        SourceRow(
            "[Type], [Delimiter], [Delimited Field Number], [Start from Row], [Read File Order], [If End "
            "of File]"),
        "D|;|2|2|S|S");
    With("LastName", [&](frmValueSource& form) {
        EXPECT_EQ(TextOf(form, "txtNamePath"), file);
        EXPECT_EQ(TextOf(form, "txtDelimiter") + TextOf(form, "txtDelFNum") + TextOf(form, "cboEOF"),
                  ";2Stop");
        Type(form, "txtStartRow", "3");
        Type(form, "txtEndRow", "2");
        Click(form, "cmdOK");
        EXPECT_EQ(recorder.Take(), "exclamation: Start number must be less than or equal to end number");
        EXPECT_TRUE(Child<QLineEdit>(form, "txtStartRow").hasFocus());
        Type(form, "txtEndRow", "9");
        std::remove(file.c_str());
        Click(form, "cmdOK");
        EXPECT_EQ(recorder.Take(), "exclamation: Please select a valid input file name and path.");
        Press(form, Qt::Key_Escape);
    });
    EXPECT_EQ(SourceRow("[Start from Row]"), "2");
}

TEST_F(ValueSourceTest, ASpreadsheetOffersItsSheets) {
    const std::string file = folder.Path("in.xlsx");
    const auto row = [](const std::string& text) {
        return "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>" + text + "</t></is></c></row>";
    };
    XlsxParts parts;
    parts.sheets = {{"First", row("x")}, {"Second", row("y")}};
    WriteXlsx(file, parts);
    With("LastName", [&](frmValueSource& form) {
        Pick(form, "optExcel");
        picker.answers = {file};
        Click(form, "cmdBrowse");
        EXPECT_EQ(TextOf(form, "txtExcel"), "First");
        EXPECT_EQ(Child<QComboBox>(form, "txtExcel").count(), 2);
        Child<QComboBox>(form, "txtExcel").setEditText("Third");
        Click(form, "cmdOK");
        EXPECT_EQ(recorder.Take(), "exclamation: There is no worksheet 'Third' in the spreadsheet.");
        Child<QComboBox>(form, "txtExcel").setEditText("Second");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(SourceRow("[Type], [Sheet], [Start from Column]"), "X|Second|1");
}

TEST_F(ValueSourceTest, PatternAndConversionAreChosenAndCleared) {
    With("Born", [this](frmValueSource& form) {
        Pick(form, "optTxtDelF");
        Type(form, "txtNamePath", folder.Write("dates.txt", "2001-02-03\n"));
        WhenShown("frmUpdateEditPatterns", [this](QWidget& pattern) {
            WhenShown("frmEPSelection", [](QWidget& choice) { Click(choice, "cmdEPSelect"); });
            Click(pattern, "cmdYear");
            Click(pattern, "cmdUEPOk");
        });
        Click(form, "cmdVSDateEdPat");
        EXPECT_EQ(TextOf(form, "txtVSDateEdPat"), "YYYY");
        WhenShown("frmCNVMaintenance", [](QWidget& choice) { Click(choice, "cmdClose"); });
        Click(form, "cmdCNV");
        EXPECT_NE(TextOf(form, "txtCNVName"), "");
        Click(form, "cmdClearCNV");
        EXPECT_EQ(TextOf(form, "txtCNVName"), "");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(SourceRow("[Code Input Datetime Edit Pattern], [FK CNV Id]"), "Y001|0");
}

TEST_F(ValueSourceTest, AnotherDatabaseIsConnectedThroughItsScreen) {
    const std::string file = folder.Path("shop.mdb");
    {
        const dao::Database shop = dao::OpenDatabase(file);
        shop.Execute("insert into [Supplier] ([SupplierId], [Name], [Country]) values (1, 'Acme', 'DE')");
    }
    const auto choose = [&](bool accept) {
        WhenShown("frmDatabaseConnection", [&, accept](QWidget& connection) {
            EXPECT_EQ(connection.windowTitle(), "Select Database Source for: CUSTOMER lastname");
            Type(connection, "txtMDB", file);
            Click(connection, "cmdRefresh");
            Choose(connection, "cboTable", "Supplier");
            Choose(connection, "cboColumn", "Name");
            Click(connection, accept ? "cmdOK" : "cmdCancel");
        });
    };
    const int before = Count("Database Connection");
    With("LastName", [&](frmValueSource& form) {
        Pick(form, "optDatabase");
        Click(form, "cmdOK");
        EXPECT_EQ(recorder.Take(), "exclamation: Please enter the database connection details");
        choose(true);
        Click(form, "cmdBrowseDB");
        EXPECT_EQ(TextOf(form, "txtOtherDB"), "DBMS: 'Jet' MDB: 'shop.mdb' Table: 'Supplier' Column: 'Name'");
        Press(form, Qt::Key_Escape);
    });
    EXPECT_EQ(Count("Database Connection"), before);
    With("LastName", [&](frmValueSource& form) {
        Pick(form, "optDatabase");
        choose(true);
        Click(form, "cmdBrowseDB");
        Choose(form, "cboReadFOrd", "Sequential");
        Choose(form, "cboEOF", "Stop");
        WhenShown("frmViewData", [](QWidget& viewer) {
            EXPECT_EQ(TextOf(viewer, "lblTitle"), "Table: Supplier");
            Click(viewer, "cmdClose");
        });
        Click(form, "cmdView");
        EXPECT_EQ(recorder.Take(), "");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Count("Database Connection"), before + 1);
    EXPECT_EQ(
        Rows("select s.[Type], c.[Table], c.[Column] from [Value Source] s join [Database Connection] c on "
             "c.[Id] = s.[FK CON Id]"),
        "O|Supplier|Name");
}

}  // namespace

}  // namespace vellumark::test
