#include "repository/screens/frmFileControls.h"

#include <QListWidget>
#include <QTreeWidget>
#include <filesystem>

#include "platform/screens/qtText.h"
#include "screen_test.h"

namespace vellumark::test {

namespace {

class FrmFileControlsTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        qputenv("HOME", home.Path().c_str());
        home.Write("data/in/rows.TXT", "");
        home.Write("data/in/store.mdb", "");
        home.Write("data/in/deeper/x", "");
        home.Write("data/Archive/x", "");
    }
    void TearDown() override {
        qputenv("HOME", home_);
        ScreenTest::TearDown();
    }

    // The folder, or "cancelled".
    std::string Ask(const std::string& start, const std::function<void(QWidget&)>& act) {
        WhenShown("frmFileControls", act);
        return AskFolder(nullptr, "Select default folder for Jet MDB Files", start).value_or("cancelled");
    }

    static std::string Files(const QWidget& form) {
        const auto& list = Child<QListWidget>(form, "lstFiles");
        std::string names;
        for (int i = 0; i < list.count(); ++i)
            names += FromQt(list.item(i)->text()) + "|";
        return names;
    }

    TempFolder home;

 private:
    const QByteArray home_ = qgetenv("HOME");
};

TEST_F(FrmFileControlsTest, StartsAtTheFolderAndShowsItsFiles) {
    const std::string in = home.Path("data/in");
    EXPECT_EQ(Ask(in,
                  [&](QWidget& form) {
                      EXPECT_EQ(FromQt(form.windowTitle()), "Select default folder for Jet MDB Files");
                      EXPECT_EQ(TextOf(form, "cboDrive"), "Home");
                      EXPECT_EQ(TextOf(form, "txtFolder"), in);
                      EXPECT_EQ(Files(form), "rows.TXT|store.mdb|");
                      Choose(form, "cboFileType", "*.txt");
                      EXPECT_EQ(Files(form), "rows.TXT|");
                      Click(form, "cmdSelect");
                  }),
              in + "/");
    EXPECT_EQ(Ask(in, [](QWidget& form) { Click(form, "cmdCancel"); }), "cancelled");
    // What isn't there starts above it; what means nothing, at home.
    for (const auto& [start, found] :
         {std::pair{home.Path("data\\gone\\deep\\"), home.Path("data")}, {"nowhere", home.Path()}})
        EXPECT_EQ(Ask(start, [](QWidget& form) { Press(form, Qt::Key_Return); }), found + "/");
}

TEST_F(FrmFileControlsTest, KeysWalkTheFolders) {
    EXPECT_EQ(Ask(home.Path("data"),
                  [&](QWidget& form) {
                      auto& folders = Child<QTreeWidget>(form, "lstFolders");
                      Press(folders, Qt::Key_Down);
                      EXPECT_EQ(TextOf(form, "txtFolder"), home.Path("data/Archive"));
                      Press(folders, Qt::Key_Down);
                      Press(folders, Qt::Key_Right);
                      Press(folders, Qt::Key_Right);
                      EXPECT_EQ(TextOf(form, "txtFolder"), home.Path("data/in/deeper"));
                      Press(form, Qt::Key_Return);
                  }),
              home.Path("data/in/deeper/"));
    EXPECT_EQ(Ask("/",
                  [](QWidget& form) {
                      EXPECT_EQ(TextOf(form, "txtFolder"), "/");
                      EXPECT_GT(Child<QTreeWidget>(form, "lstFolders").topLevelItem(0)->childCount(), 0);
                      Click(form, "cmdSelect");
                  }),
              "/");
}

TEST_F(FrmFileControlsTest, ADriveThatFailsLeavesTheOldOne) {
    EXPECT_EQ(Ask("/",
                  [&](QWidget& form) {
                      EXPECT_EQ(TextOf(form, "cboDrive"), "File system");
                      std::filesystem::rename(home.Path("data"), home.Path("other"));
                      Choose(form, "cboDrive", "Home");
                      EXPECT_EQ(TextOf(form, "txtFolder"), home.Path());
                      Choose(form, "cboDrive", "File system");
                      std::filesystem::remove_all(home.Path());
                      Choose(form, "cboDrive", "Home");
                      EXPECT_EQ(recorder.Take(),
                                "exclamation: Unexpected error changing drive: \n\nError: 76 No such file or "
                                "directory: '" +
                                    home.Path() + "'");
                      EXPECT_EQ(TextOf(form, "cboDrive"), "File system");
                      Click(form, "cmdSelect");
                  }),
              "/");
}

}  // namespace

}  // namespace vellumark::test
