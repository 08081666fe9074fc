#include "scenario/screens/columnRuleEditor.h"

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>

#include "repository/modVellumark.h"
#include "scenario/modDependencies.h"
#include "scenario/modRuleSelection.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

class ColumnRuleEditorTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        ReadShop();
        ASSERT_TRUE(CreateScenario("Fill"));
        for (const char* table : {"Customer", "Supplier", "Product"})
            AddTableRule(Number("select [Id] from [Table] where [Name] = '" + std::string(table) + "'"), 1, 9,
                         true);
        details.show();
        details.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&details));
    }
    void TearDown() override {
        RuleScenarioId = CurrentTTRId = CurrentTCRId = 0;
        ScreenTest::TearDown();
    }

    int Number(const std::string& sql) { return std::stoi(Rows(sql)); }

    // Selects the column in the rule of its table, in the Scenario or, with 0, among the defaults.
    void Select(const std::string& table, const std::string& column, int scenario = CurrentTSOId) {
        const std::string rule =
            " from [TSO Insert Column Rule] r join [Table] t on t.[Id] = r.[FK TAB Id]"
            " join [Column] c on c.[FK TAB Id] = t.[Id] and c.[Id] = r.[FK COL Id] where r.[FK TSO Id] = " +
            std::to_string(scenario) + " and t.[Name] = '" + table + "' and c.[Name] = '" + column + "'";
        RuleScenarioId = scenario;
        CurrentTTRId = Number("select r.[FK TTR Id]" + rule);
        CurrentTCRId = Number("select r.[Id]" + rule);
        editor.fDisplayTCRDetails_Main();
        details.setCurrentIndex(0);
    }

    // Fields of the selected rule as stored.
    std::string Stored(const std::string& fields) {
        return Rows("select " + fields + " from [TSO Insert Column Rule] where [FK TSO Id] = " +
                    std::to_string(RuleScenarioId) + " and [FK TTR Id] = " + std::to_string(CurrentTTRId) +
                    " and [Id] = " + std::to_string(CurrentTCRId));
    }
    void Store(const std::string& assignments) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [TSO Insert Column Rule] set " + assignments +
                                   " where [FK TSO Id] > 0");
    }

    // The controls of the list that are enabled.
    std::string Enabled(std::initializer_list<const char*> controls) {
        std::string names;
        for (const char* name : controls)
            if (IsEnabled(details, name))
                names += std::string(names.empty() ? "" : " ") + name;
        return names;
    }

    QTabWidget details;
    ColumnRuleEditor editor{details, nullptr};
};

TEST_F(ColumnRuleEditorTest, DataTypesOpenTheirFields) {
    const struct {
        const char *table, *column, *enabled, *constant;
    } cases[] = {
        {"Customer", "FirstName",
         "optData optFile cboFill cboGenValue cboConcat txtColStart cboOrder cboCDQuotes", "txtConstVal"},
        {"Customer", "CreditLimit",
         "optData optFile optNull cboFill cboGenValue cboConcat txtColStart cboOrder cboCDQuotes",
         "txtConstVal"},
        {"Customer", "Born",
         "optData optFile optNull cboDateTimeInc txtColStart cboOrder cmdColEditPat cboCDQuotes",
         "cboConstVal"},
        {"Supplier", "OpensAt",
         "optData optFile optNull cboDateTimeInc txtColStart cboOrder cmdColEditPat cboCDQuotes",
         "cboConstVal"},
        {"Customer", "RegisteredAt",
         "optData optFile cboDateTimeInc txtColStart cboOrder cmdColEditPat cboCDQuotes", "cboConstVal"},
        {"Customer", "IsMember", "optData cboOrder cboCDQuotes", "cboConstVal"},
        {"Product", "Picture", "", "txtConstVal"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.column);
        Select(c.table, c.column);
        EXPECT_EQ(Enabled({"optData", "optFile", "optNull", "cmdValue", "picValue", "cboFill", "cboGenValue",
                           "cboConcat", "cboDateTimeInc", "txtColStart", "cboOrder", "cmdColEditPat",
                           "cboCDQuotes"}),
                  c.enabled);
        for (const char* field : {"txtConstVal", "cboConstVal"})
            EXPECT_EQ(IsShown(details, field), std::string(field) == c.constant) << field;
        EXPECT_FALSE(IsShown(details, "dtpConstVal"));
        EXPECT_EQ(IsEnabled(details, "lblFill"), IsEnabled(details, "cboFill"));
    }
    CurrentTCRId = 0;
    editor.fDisplayTCRDetails_Main();
    EXPECT_EQ(Enabled({"optData", "txtConstVal", "cboFill", "cboCDQuotes", "lblFill", "optIncluded"}), "");
    EXPECT_TRUE(editor.updateTCRDetails());
}

TEST_F(ColumnRuleEditorTest, PropertiesTellOfTheColumn) {
    const struct {
        const char *table, *column, *type, *sizeLabel, *size, *scale, *parent;
        bool mandatory, identifier;
    } cases[] = {
        {"Customer", "FirstName", "Character", "Length:", "40", nullptr, nullptr, true, false},
        {"Product", "ProductId", "Long Integer", "Precision:", "10", "0", nullptr, true, true},
        {"Product", "SupplierId", "Long Integer", "Precision:", "10", "0", "Supplier.SupplierId", true,
         false},
        {"Customer", "Born", "Date", nullptr, nullptr, nullptr, nullptr, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.column);
        Select(c.table, c.column);
        details.setCurrentIndex(1);
        EXPECT_EQ(TextOf(details, "txtDataType"), c.type);
        EXPECT_EQ(IsShown(details, "txtPrecision"), c.size != nullptr);
        if (c.size != nullptr) {
            EXPECT_EQ(TextOf(details, "lblPrecision"), c.sizeLabel);
            EXPECT_EQ(TextOf(details, "txtPrecision"), c.size);
        }
        EXPECT_EQ(IsShown(details, "txtScale"), c.scale != nullptr);
        EXPECT_EQ(IsShown(details, "fraForeignKey"), c.parent != nullptr);
        if (c.parent != nullptr) {
            EXPECT_EQ(TextOf(details, "txtFKTable") + "." + TextOf(details, "txtFKColumn"), c.parent);
        }
        EXPECT_EQ(Child<QCheckBox>(details, "chkOptionality").isChecked(), c.mandatory);
        EXPECT_EQ(Child<QCheckBox>(details, "chkIdentifier").isChecked(), c.identifier);
    }
}

TEST_F(ColumnRuleEditorTest, WhatIsEnteredIsStored) {
    Select("Customer", "Email");
    Click(details, "optNull");
    Click(details, "optCompUnique");
    Type(details, "txtConstVal", "a@b");
    Choose(details, "cboGenValue", "Default");
    Choose(details, "cboFill", "To end");
    Choose(details, "cboConcat", "Beginning");
    Type(details, "txtColStart", "3");
    Type(details, "txtColEnd", "7");
    Choose(details, "cboOrder", "Random");
    details.setCurrentIndex(2);
    Choose(details, "cboCDQuotes", "None");
    EXPECT_FALSE(IsEnabled(details, "txtCDQuotes"));
    Choose(details, "cboCDQuotes", "Quotes");
    Type(details, "txtCDQuotes", "'");
    EXPECT_EQ(editor.GenerateCode(), 'N');
    ASSERT_TRUE(editor.updateTCRDetails()) << recorder.Take();
    const char* fields =
        "[Code Generate Data Type], [Flag Exclude], [Flag column unique], [Flag compound column unique],"
        " [Constant Value], [generated value too large], [Fill the column], [Concat Value with Id],"
        " [Start Range], [End Range], [Range order], [Code Output Textfile in Quotes],"
        " [Char Output Textfile in Quotes]";
    EXPECT_EQ(Stored(fields), "N|0|0|-1|a@b|D|E|B|3|7|R|Q|'");

    Select("Customer", "FirstName");
    EXPECT_EQ(Stored("[Constant Value]"), "");
    Select("Customer", "Email");
    EXPECT_EQ(TextOf(details, "cboFill") + TextOf(details, "cboOrder") + TextOf(details, "txtColEnd"),
              "To endRandom7");
    EXPECT_TRUE(Child<QRadioButton>(details, "optNull").isChecked());
    Click(details, "optIncluded");
    ASSERT_TRUE(editor.updateTCRDetails());
    EXPECT_EQ(Stored("[Flag compound column unique]"), "0");
}

TEST_F(ColumnRuleEditorTest, RangesPassOrSelectTheirField) {
    const struct {
        const char *start, *end, *message, *field, *stored;
    } cases[] = {
        {"1x-", "7", "Start number must be numeric", "txtColStart", nullptr},
        {"1", "-", "End number must be numeric", "txtColEnd", nullptr},
        {"8", "7", "Start number must be less than or equal to end number", "txtColStart", nullptr},
        {"0", "7", "Please enter a start number greater than zero", "txtColStart", nullptr},
        {"", "7", nullptr, nullptr, "0|0"},
        {"5", "0", nullptr, nullptr, "5|0"},
        {"0", "0", nullptr, nullptr, "0|0"},
        {"", "", nullptr, nullptr, "0|0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.start) + " to " + c.end);
        Store("[Start Range] = '1', [End Range] = '2'");
        Select("Customer", "Email");
        Type(details, "txtColStart", c.start);
        Type(details, "txtColEnd", c.end);
        details.setCurrentIndex(1);
        EXPECT_EQ(editor.updateTCRDetails(), c.message == nullptr);
        if (c.message == nullptr) {
            EXPECT_EQ(Stored("[Start Range], [End Range]"), c.stored);
            continue;
        }
        EXPECT_EQ(recorder.Take(), std::string("exclamation: ") + c.message);
        const auto& field = Child<QLineEdit>(details, c.field);
        EXPECT_TRUE(field.hasFocus());
        EXPECT_EQ(field.selectedText(), field.text());
        EXPECT_EQ(Stored("[Start Range], [End Range]"), "1|2");
    }
    Select("Customer", "Email");
    EXPECT_FALSE(IsEnabled(details, "cboOrder"));
    EXPECT_EQ(TextOf(details, "cboOrder"), "Sequential");
    Type(details, "txtColStart", "4");
    EXPECT_TRUE(IsEnabled(details, "cboOrder"));
}

TEST_F(ColumnRuleEditorTest, ConstantsAreChecked) {
    Select("Supplier", "Country");
    Type(details, "txtConstVal", "abc");
    EXPECT_FALSE(editor.updateTCRDetails());
    EXPECT_EQ(recorder.Take(), "exclamation: Maximimum valid length is 2 characters.");
    EXPECT_TRUE(Child<QLineEdit>(details, "txtConstVal").hasFocus());

    Click(details, "optFile");
    EXPECT_TRUE(IsEnabled(details, "cmdValue"));
    Type(details, "txtConstVal", "");
    EXPECT_FALSE(editor.updateTCRDetails());
    EXPECT_EQ(recorder.Take(),
              "exclamation: Please enter a selection for the 'Other Data Source' or set generated data "
              "option to 'Generated Data'");
    EXPECT_TRUE(Child<QRadioButton>(details, "optFile").hasFocus());
    EXPECT_EQ(Stored("[Constant Value], [Code Generate Data Type]"), "|D");
}

TEST_F(ColumnRuleEditorTest, MomentsArePicked) {
    const struct {
        const char *table, *column, *steps, *constant, *changed;
    } cases[] = {
        {"Customer", "Born", "Day Month Year ", "0150-02-03", "0151-02-03"},
        {"Supplier", "OpensAt", "Second Minute Hour ", "04:05:06", "05:05:06"},
        {"Customer", "RegisteredAt", "Second Minute Hour Day Month Year ", "2024-03-31 02:30:00",
         "2025-03-31 02:30:00"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.column);
        Store("[Constant Value] = '" + std::string(c.constant) + "'");
        Select(c.table, c.column);
        auto& steps = Child<QComboBox>(details, "cboDateTimeInc");
        std::string offered;
        for (int i = 0; i < steps.count(); ++i)
            offered += steps.itemText(i).toStdString() + " ";
        EXPECT_EQ(offered, c.steps);
        auto& constant = Child<QDateTimeEdit>(details, "dtpConstVal");
        EXPECT_TRUE(IsShown(details, "dtpConstVal"));
        EXPECT_EQ(constant.text().toStdString(), c.constant);
        constant.setCurrentSectionIndex(0);
        constant.stepUp();
        ASSERT_TRUE(editor.updateTCRDetails()) << recorder.Take();
        EXPECT_EQ(Stored("[Constant Value]"), c.changed);

        Choose(details, "cboConstVal", "Use Generated data");
        EXPECT_FALSE(IsShown(details, "dtpConstVal"));
        Choose(details, "cboConstVal", "Override with --->");
        EXPECT_EQ(constant.text().toStdString(), c.changed);
        Choose(details, "cboConstVal", "Use Generated data");
        ASSERT_TRUE(editor.updateTCRDetails());
        EXPECT_EQ(Stored("[Constant Value]"), "");
    }
}

TEST_F(ColumnRuleEditorTest, PatternsAreBuiltOnTheirScreen) {
    const struct {
        const char *table, *column, *closed;
    } cases[] = {{"Customer", "Born", "cmdHour"}, {"Supplier", "OpensAt", "cmdYear"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.column);
        Store("[Code Output Datetime Edit Pattern] = 'C009'");
        Select(c.table, c.column);
        details.setCurrentIndex(2);
        EXPECT_EQ(TextOf(details, "txtDateEditPat"), ":");
        WhenShown("frmUpdateEditPatterns", [](QWidget& form) {
            Click(form, "cmdUEPDelete");
            Click(form, "cmdUEPCancel");
        });
        Click(details, "cmdColEditPat");
        EXPECT_EQ(TextOf(details, "txtDateEditPat"), ":");
        WhenShown("frmUpdateEditPatterns", [&c](QWidget& form) {
            EXPECT_FALSE(IsEnabled(form, c.closed));
            Click(form, "cmdUEPDelete");
            Click(form, "cmdUEPOk");
        });
        Click(details, "cmdColEditPat");
        EXPECT_EQ(TextOf(details, "txtDateEditPat"), "");
        ASSERT_TRUE(editor.updateTCRDetails());
        EXPECT_EQ(Stored("[Code Output Datetime Edit Pattern]"), "");
    }
}

TEST_F(ColumnRuleEditorTest, KeysGoByTheDataType) {
    const struct {
        const char *table, *column, *taken;
    } cases[] = {
        {"Customer", "FirstName", "1x.-"}, {"Product", "Stock", "1-"}, {"Customer", "CreditLimit", "1.-"}};
    for (const auto& c : cases) {
        Select(c.table, c.column);
        Type(details, "txtConstVal", "1x.-");
        EXPECT_EQ(TextOf(details, "txtConstVal"), c.taken) << c.column;
    }
}

TEST_F(ColumnRuleEditorTest, BooleanConstantsAreListed) {
    Select("Customer", "IsMember");
    EXPECT_EQ(TextOf(details, "cboConstVal"), "Random (True/False)");
    for (const auto& [word, stored] : std::vector<std::pair<const char*, const char*>>{
             {"False", "False"}, {"True", "True"}, {"Random (True/False)", ""}}) {
        Choose(details, "cboConstVal", word);
        ASSERT_TRUE(editor.updateTCRDetails());
        EXPECT_EQ(Stored("[Constant Value]"), stored);
        Select("Customer", "IsMember");
        EXPECT_EQ(TextOf(details, "cboConstVal"), word);
    }
}

// Rules of older stores hold no code in some fields, or one that no option stands for.
TEST_F(ColumnRuleEditorTest, EmptyCodesReadAsTheirListSays) {
    Store(
        "[Fill the column] = null, [Concat Value with Id] = null, [generated value too large] = null,"
        " [Code Output Textfile in Quotes] = null, [date time increment] = null,"
        " [Code Generate Data Type] = 'N', [Range order] = null");
    Select("Customer", "FirstName");
    EXPECT_EQ(TextOf(details, "cboFill") + "|" + TextOf(details, "cboConcat") + "|" +
                  TextOf(details, "cboGenValue") + "|" + TextOf(details, "cboCDQuotes"),
              "None|End|Beginning|Quotes");
    EXPECT_TRUE(Child<QRadioButton>(details, "optNull").isChecked());
    EXPECT_FALSE(IsEnabled(details, "optNull"));
    Select("Customer", "Born");
    EXPECT_EQ(TextOf(details, "cboDateTimeInc"), "");
    ASSERT_TRUE(editor.updateTCRDetails());
    EXPECT_EQ(Stored("[date time increment], [Concat Value with Id]"), "|E");
}

TEST_F(ColumnRuleEditorTest, DependenciesResolveTheirColumn) {
    DependencyDetails dependency;
    Select("Supplier", "SupplierId");
    const int parent = CurrentTTRId;
    Select("Product", "SupplierId");
    ASSERT_TRUE(fReadDependency(CurrentTTRId, "SupplierId", dependency));
    ASSERT_TRUE(fChooseParentRule(dependency, parent));
    ASSERT_TRUE(fApplyDependency(dependency));
    Select("Product", "SupplierId");
    EXPECT_TRUE(editor.ColumnResolvedByParent());
    EXPECT_EQ(TextOf(details, "txtConstVal"), "This foreign key has been SET to be resolved by it's parent.");
    EXPECT_EQ(Enabled({"optData", "optIncluded", "txtConstVal", "cboFill", "txtColStart", "cboCDQuotes"}),
              "");
    // The default rule of the column may bear the same Ids, and has no Dependency.
    Select("Product", "SupplierId", 0);
    EXPECT_FALSE(editor.ColumnResolvedByParent());
    EXPECT_EQ(TextOf(details, "txtConstVal"), "");
    Type(details, "txtConstVal", "12");
    ASSERT_TRUE(editor.updateTCRDetails());
    EXPECT_EQ(Stored("[Constant Value]"), "12");
    EXPECT_EQ(Count("TSO Insert Column Rule", "[Constant Value] = '12'"), 1);
}

}  // namespace

}  // namespace vellumark::test
