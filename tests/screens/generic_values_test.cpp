#include <QApplication>
#include <QClipboard>

#include "grid_cells.h"
#include "repository/modVellumark.h"
#include "scenario/modGenericValues.h"
#include "scenario/screens/frmCNVMaintenance.h"
#include "scenario/screens/frmVLEMaintenance.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

class GenericValuesTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        ValuesScope values;
        for (const char* table : {"Category", "Value", "Conversion Code", "Conversion Code Value"})
            ValuesDatabase.Execute("delete from [" + std::string(table) + "]");
        ASSERT_TRUE(fImportCategory("Colours", 'C', {"red", "blue", "amber"}));
        ASSERT_TRUE(fImportCategory("Years", 'I', {"1999", "2004"}));
        ASSERT_TRUE(fImportConversionCode("Country", {{"DE", "Germany"}, {"AT", "Austria"}}));
    }

    static RowGrid& Grid(QWidget& form, const char* name) { return Child<RowGrid>(form, name); }
    static void Show(QWidget& form) {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    std::string Values(const std::string& sql) {
        ValuesScope values;
        return RowsOf(ValuesDatabase, sql);
    }
    void UseInSource(const char* field, int id) {
        RepositoryScope repository;
        RepositoryDatabase.Execute("insert into [Value Source] ([" + std::string(field) + "]) values (?)",
                                   {id});
    }
};

TEST_F(GenericValuesTest, ACategoryIsMadeTypedPastedAndSorted) {
    frmVLEMaintenance form;
    Show(form);
    RowGrid& categories = Grid(form, "grdCategories");
    RowGrid& values = Grid(form, "grdValues");
    EXPECT_EQ(CellTexts(categories, 2),
              "Colours|Character|Vellumark Generic Value\nYears|Integer|Vellumark Generic Value\n");
    EXPECT_EQ(TextOf(form, "lblValues"), "Values for Categor&y: Colours");

    Choose(form, "cboType", "COOL:Gen Permitted Value");
    TypeCell(categories, 0, 0, "Sizes");
    TypeCell(categories, 0, 1, "Real");
    values.setFocus();
    EXPECT_EQ(Values("select [Id], [Name], [Data Type], [Type] from [Category] where [Id] > 2"),
              "3|Sizes|R|C");
    TypeCell(values, 0, 0, "2.5");
    QApplication::clipboard()->setText("10\n1.5\nten\n7");
    Click(form, "cmdPaste");
    EXPECT_EQ(recorder.Take(), "exclamation: Value must be numeric.");
    EXPECT_EQ(Values("select [Value], [Sort Order], [FK Depends VLE Id] from [Value] where [FK CAT Id] = 3"),
              "2.5|1|0\n10|2|0\n1.5|3|0");
    EXPECT_TRUE(values.HasEditedRow());
    Click(form, "cmdCancel");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Values("select count(*) from [Value] where [FK CAT Id] = 3"), "3");
}

TEST_F(GenericValuesTest, SortingNumbersAnewUnlessCancelled) {
    frmVLEMaintenance form;
    Show(form);
    recorder.choiceAnswers = {0, 1, 2};
    const char* orders[] = {"red\nblue\namber", "amber\nblue\nred", "red\nblue\namber"};
    for (const char* order : orders) {
        Click(form, "cmdSort");
        EXPECT_EQ(Values("select [Value] from [Value] where [FK CAT Id] = 1 order by [Sort Order]"), order);
    }
    EXPECT_EQ(Values("select min([Sort Order]), max([Sort Order]) from [Value] where [FK CAT Id] = 1"),
              "1|3");
    EXPECT_EQ(CellText(Grid(form, "grdValues"), 0, 0), "red");
}

TEST_F(GenericValuesTest, AValueDependsOnOneOfAnotherCategory) {
    frmVLEMaintenance form;
    Show(form);
    RowGrid& values = Grid(form, "grdValues");
    EXPECT_FALSE(IsEnabled(form, "cmdClearDependency"));
    WhenShown("frmVLESelect", [](QWidget& choice) {
        Grid(choice, "grdCategories").SelectId(2);
        Grid(choice, "grdValues").SelectId(2);
        Click(choice, "cmdSelect");
    });
    Click(form, "cmdDepends");
    EXPECT_EQ(CellText(values, 0, 1), "Years: 2004");
    EXPECT_TRUE(IsEnabled(form, "cmdClearDependency"));
    Click(form, "cmdClearDependency");
    EXPECT_EQ(CellText(values, 0, 1), "");

    WhenShown("frmVLESelect", [](QWidget& choice) {
        Grid(choice, "grdCategories").SelectId(2);
        Click(choice, "cmdSelect");
    });
    Click(form, "cmdDepends");
    recorder.yesNoAnswers = {true};
    Grid(form, "grdCategories").SelectId(2);
    Click(form, "cmdDeleteCategory");
    EXPECT_EQ(recorder.Take(), "question: Do you want to delete the category Years?");
    EXPECT_EQ(Values("select [FK Depends CAT Id], [FK Depends VLE Id] from [Value] where [Value] = 'red'"),
              "0|0");
    EXPECT_EQ(Values("select count(*) from [Value]"), "3");
}

TEST_F(GenericValuesTest, WhatGenerationUsesStays) {
    UseInSource("FK CAT Id", 1);
    UseInSource("FK CNV Id", 1);
    frmVLEMaintenance categories;
    Show(categories);
    Click(categories, "cmdDeleteCategory");
    frmCNVMaintenance codes;
    Show(codes);
    Click(codes, "cmdDeleteCode");
    EXPECT_EQ(
        recorder.Take(),
        "exclamation: Unable to delete the category Colours\nIt has been selected for use in data "
        "generation.|"
        "exclamation: Unable to delete the Conversion Code Country\nIt has been selected for use in data "
        "generation.");
    EXPECT_EQ(Values("select (select count(*) from [Category]), (select count(*) from [Conversion Code])"),
              "2|1");
}

TEST_F(GenericValuesTest, AScreenChoosesACategoryOrAConversionCode) {
    frmVLEMaintenance category("FIRSTNAME", 2, nullptr);
    Show(category);
    EXPECT_EQ(category.windowTitle(), "Select a Generic Value Category for: FIRSTNAME");
    EXPECT_EQ(TextOf(category, "cmdClose"), "&Select");
    Click(category, "cmdClose");
    EXPECT_EQ(category.Selected().id, 2);
    EXPECT_EQ(category.Selected().dataType, 'I');

    frmVLEMaintenance cancelled("FIRSTNAME", 2, nullptr);
    Show(cancelled);
    Press(cancelled, Qt::Key_Escape);
    EXPECT_EQ(cancelled.Selected().id, 0);

    frmCNVMaintenance code("COUNTRY", 0, nullptr);
    Show(code);
    EXPECT_EQ(code.windowTitle(), "Select a Conversion Code for: COUNTRY");
    Click(code, "cmdClose");
    EXPECT_EQ(code.SelectedCNVId(), 1);
}

TEST_F(GenericValuesTest, ConversionCodesAreTypedAndPasted) {
    frmCNVMaintenance form;
    Show(form);
    RowGrid& codes = Grid(form, "grdCodes");
    RowGrid& values = Grid(form, "grdValues");
    EXPECT_EQ(CellTexts(values, 2), "AT|Austria\nDE|Germany\n");
    TypeCell(codes, 1, 0, "country");
    Press(codes, Qt::Key_Up);
    QTest::qWait(10);
    EXPECT_EQ(recorder.Take(), "exclamation: There is a Conversion Code 'country' already.");
    TypeCell(codes, 1, 0, "Currency");
    values.setFocus();
    QApplication::clipboard()->setText("E\tEuro\nD\tDollar\n");
    Click(form, "cmdPaste");
    EXPECT_EQ(Values("select [FK CNV Id], [Id], [Code], [Value] from [Conversion Code Value] where [FK CNV "
                     "Id] = 2 order by [Id]"),
              "2|1|E|Euro\n2|2|D|Dollar");
    recorder.yesNoAnswers = {true};
    Click(form, "cmdDeleteCode");
    EXPECT_EQ(Values("select count(*) from [Conversion Code Value]"), "2");
    Click(form, "cmdClose");
    EXPECT_FALSE(form.isVisible());
}

}  // namespace

}  // namespace vellumark::test
