#include "tools/screens/frmVersionControl.h"

#include <filesystem>

#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"
#include "screen_test.h"
#include "tools/screens/reportOpeners.h"

namespace vellumark::test {

namespace {

// The shop is open; "Old", which has one table of its own, is the other schema.
class FrmVersionControlTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        MakeSchema("Old");
        AddTable("Leftover", {"Id Long Integer"});
        ReadShop();
        ShownSchemaDescription = "As it is now";
        const RepositoryScope repository;
        RepositoryDatabase.Execute("update [Database] set [Description] = 'With Scenarios' where [Id] = 1");
        RepositoryDatabase.Execute("update [Options] set [Dir Report] = ?", {folder.Path() + "/"});
        ProgramStarter = [this](const std::vector<std::string>& command) {
            started.push_back(command.back());
        };
    }
    void TearDown() override {
        ProgramStarter = platform::StartDetached;
        ScreenTest::TearDown();
    }

    void ChooseTarget(QWidget& form, const std::string& name) {
        WhenShown("frmDatabaseOpen", [name](QWidget& list) {
            EXPECT_EQ(list.windowTitle(), "Select Target Database Schema");
            Type(list, "txtFind", name);
            Click(list, "cmdOK");
        });
        Click(form, "cmdBrowseTarget");
    }
    std::string TablesOfOld() {
        return Rows("select count(*), sum([Name] = 'Leftover') from [Table] where [FK DBS Id] = 1");
    }

    std::vector<std::string> started;  // the files opened
};

TEST_F(FrmVersionControlTest, CarriesTheOpenSchemaOntoTheChosenOne) {
    const struct {
        VersionControlMode mode;
        const char *title, *first, *second, *tables;
    } cases[] = {
        {VersionControlMode::Merge, "Merge Database Schemas",
         "Merge will copy the details FROM the open database schema TO the target database schema.",
         "Tables and columns may be created or updated on the TARGET database schema.", "7|1"},
        {VersionControlMode::VersionControl, "Version Control",
         "Version Control will copy the changed details FROM the open database schema TO the target database "
         "schema.",
         "Tables and columns may be created, updated  or deleted on the TARGET database schema.", "6|0"},
    };
    for (const auto& c : cases) {
        frmVersionControl form(c.mode);
        form.show();
        EXPECT_EQ(form.windowTitle(), c.title);
        EXPECT_EQ(TextOf(form, "lblInstruction1"), c.first);
        EXPECT_EQ(TextOf(form, "lblInstruction2"), c.second);
        EXPECT_EQ(TextOf(form, "lblSourceName") + "|" + TextOf(form, "lblSourceDesc"), "Shop|As it is now");
        EXPECT_EQ(TextOf(form, "txtLog"), folder.Path("log.txt"));
        EXPECT_FALSE(IsEnabled(form, "cmdUpdate"));
        ChooseTarget(form, "Old");
        EXPECT_EQ(TextOf(form, "lblTargetName") + "|" + TextOf(form, "lblTargetDesc"), "Old|With Scenarios");
        const std::string log = folder.Path(std::string(c.title) + ".txt");
        picker.answers = {std::nullopt, log};
        Click(form, "cmdBrowseLog");
        EXPECT_EQ(TextOf(form, "txtLog"), folder.Path("log.txt"));
        Click(form, "cmdBrowseLog");
        EXPECT_EQ(picker.requests.back().title + "|" + picker.requests.back().filter + "|" +
                      picker.requests.back().start,
                  "Select output log file|txt (*.txt)|*.txt|All files (*.*)|*.*|" + folder.Path() + "/");
        EXPECT_EQ(TextOf(form, "cmdClose"), "&Cancel");
        Click(form, "cmdUpdate");
        EXPECT_EQ(TablesOfOld(), c.tables);
        EXPECT_EQ(TextOf(form, "cmdClose"), "&Close");
        EXPECT_EQ(started.back(), log);
        Click(form, "cmdClose");
        EXPECT_FALSE(form.isVisible());
    }
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(FrmVersionControlTest, WhatCanNotBeDoneLeavesTheScreen) {
    frmVersionControl form(VersionControlMode::VersionControl);
    form.show();
    ChooseTarget(form, "Old");
    ChooseTarget(form, "Shop");
    EXPECT_EQ(TextOf(form, "lblTargetName"), "Old");
    WhenShown("frmDatabaseOpen", [](QWidget& list) { Click(list, "cmdCancel"); });
    Click(form, "cmdBrowseTarget");
    EXPECT_EQ(TextOf(form, "lblTargetName"), "Old");
    const std::string older = folder.Write("older.txt", "older"), missing = folder.Path("missing/log.txt");
    recorder.yesNoAnswers = {false};
    for (const std::string& log : {std::string(), older, missing}) {
        Type(form, "txtLog", log);
        Click(form, "cmdUpdate");
    }
    EXPECT_EQ(recorder.Take(),
              "exclamation: Please select a different target database schema to the open one.|"
              "exclamation: Please enter name and path for the text file|question: " +
                  older + " already exists. Do you want to replace it?|exclamation: Cannot open the File: " +
                  missing);
    EXPECT_EQ(ReadFile(older), "older");
    EXPECT_EQ(TablesOfOld(), "1|1");
    EXPECT_EQ(TextOf(form, "cmdClose"), "&Cancel");
    EXPECT_TRUE(started.empty());
    Press(form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmVersionControlTest, ReportsOpenInTheViewer) {
    ShowDefinitionReport();
    recorder.choiceAnswers = {0, 2};
    ShowTablesReport();
    ShowTablesReport();
    EXPECT_EQ(started, (std::vector{folder.Path("VMColDef.htm"), folder.Path("VMTables.htm")}));
    EXPECT_NE(ReadFile(folder.Path("VMColDef.htm")).find("<h2>Database: Shop</h2>"), std::string::npos);
    recorder.yesNoAnswers = {false};
    ShowDefinitionReport();
    EXPECT_EQ(started.size(), 2U);
}

}  // namespace

}  // namespace vellumark::test
