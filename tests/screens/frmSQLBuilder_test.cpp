#include "tools/screens/frmSQLBuilder.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

#include "repository/modOptionsMaintenance.h"
#include "repository/modVellumark.h"
#include "rule_screen.h"
#include "screen_test.h"
#include "test_files.h"

namespace vellumark::test {

namespace {

void PickWord(QWidget& form, const char* list, const std::string& word) {
    auto& words = Child<QListWidget>(form, list);
    const QList<QListWidgetItem*> found = words.findItems(QString::fromStdString(word), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << word;
    words.scrollToItem(found[0]);
    QTest::mouseClick(words.viewport(), Qt::LeftButton, {}, words.visualItemRect(found[0]).center());
}

QPlainTextEdit& Box(QWidget& form) {
    return Child<QPlainTextEdit>(form, "rtfSQL");
}

// Lines of the results, each with "/" behind it.
std::string Results(QWidget& form) {
    const QAbstractItemModel& lines = *Child<QListView>(form, "lstResults").model();
    std::string text;
    for (int i = 0; i < lines.rowCount(); ++i)
        text += lines.index(i, 0).data().toString().toStdString() + "/";
    return text;
}

bool WaitUntilRun(QWidget& form) {
    return QTest::qWaitFor([&] { return IsEnabled(form, "cmdRun"); }, 20000);
}

std::string RunText(QWidget& form, const std::string& text) {
    Box(form).setPlainText(QString::fromStdString(text));
    Click(form, "cmdRun");
    EXPECT_TRUE(WaitUntilRun(form)) << text;
    return Results(form);
}

}  // namespace

// The sample shop is open, and its Target not connected; the options connect by themselves.
class FrmSQLBuilderTest : public ScreenTest {
 protected:
    void SetUp() override {
        ScreenTest::SetUp();
        ReadShop();
        recorder.Take();
        CloseTargetConnection();
        AutoConnect = true;
    }
    void TearDown() override {
        AutoConnect = false;
        ScreenTest::TearDown();
    }
};

TEST_F(FrmSQLBuilderTest, PicksAtTheCaret) {
    frmSQLBuilder form(BuilderCaller::Main, "not taken");
    form.show();
    EXPECT_EQ(TextOf(form, "txtDatabase"), "Jet (ADO): " + folder.Path("shop.mdb"));
    EXPECT_EQ(TextOf(form, "rtfSQL"), "");
    PickWord(form, "lstStatements", "SELECT");
    PickWord(form, "lstFunctions", "MAX");
    PickWord(form, "lstOperators", "(");
    PickWord(form, "lstOperators", ")");
    PickWord(form, "lstOperators", "<CrLf>");
    PickWord(form, "lstStatements", "FROM");
    PickWord(form, "lstTables", "Product");
    EXPECT_EQ(TextOf(form, "rtfSQL"), "SELECT MAX()\nFROM Product");
    EXPECT_EQ(Child<QListWidget>(form, "lstColumns").item(0)->text(), "Description");
    QTextCursor caret = Box(form).textCursor();
    caret.setPosition(11);
    Box(form).setTextCursor(caret);
    PickWord(form, "lstColumns", "Price");
    PickWord(form, "lstOperators", "<Space>");
    EXPECT_EQ(TextOf(form, "rtfSQL"), "SELECT MAX(Price  )\nFROM Product");
    QTest::keyClicks(form.focusWidget(), "x");
    EXPECT_EQ(TextOf(form, "rtfSQL"), "SELECT MAX(Price  x)\nFROM Product");
    caret.setPosition(0);
    caret.setPosition(6, QTextCursor::KeepAnchor);
    Box(form).setTextCursor(caret);
    PickWord(form, "lstStatements", "DELETE");
    EXPECT_EQ(TextOf(form, "rtfSQL"), "DELETE  MAX(Price  x)\nFROM Product");
    EXPECT_EQ(Box(form).textCursor().position(), 7);
    Box(form).undo();
    EXPECT_EQ(TextOf(form, "rtfSQL"), "SELECT MAX(Price  x)\nFROM Product");
    auto& functions = Child<QListWidget>(form, "lstFunctions");
    Press(functions, Qt::Key_End);
    Press(functions, Qt::Key_Return);
    EXPECT_EQ(TextOf(form, "rtfSQL"), "SELECTVARIANCE MAX(Price  x)\nFROM Product");
}

TEST_F(FrmSQLBuilderTest, RunsTheTextAndListsItsRows) {
    frmSQLBuilder form(BuilderCaller::Main, "");
    form.show();
    Click(form, "cmdRun");
    EXPECT_EQ(Results(form) + recorder.Take(), "");
    EXPECT_EQ(RunText(form,
                      "insert into Supplier (SupplierId, Name, Country) values (1, 'Bolt & Co', 'DE'), (2, "
                      "'Nut', 'FR')"),
              "SQL statement processed/");
    EXPECT_EQ(RunText(form, "select SupplierId, Name, OpensAt from Supplier"), "1 Bolt & Co  /2 Nut  /");
    EXPECT_EQ(Child<QLabel>(form, "lblRows").text(), "2 rows");
    auto& results = Child<QListView>(form, "lstResults");
    results.setFocus();
    results.selectAll();
    Press(results, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "1 Bolt & Co  \n2 Nut  ");
    EXPECT_EQ(RunText(form, "select * from Supplier where 1 = 0"), "");
    EXPECT_EQ(RunText(form, "selec"), "Error 3075: near \"selec\": syntax error/");
    EXPECT_EQ(RunText(form, "select 1; select 2"),
              "Error 3142: Characters found after end of SQL statement./");
    EXPECT_EQ(TargetConnectionState, 'D');
    Click(form, "cmdClear");
    EXPECT_EQ(TextOf(form, "rtfSQL") + Results(form), "");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(FrmSQLBuilderTest, ConnectsOnlyWhenTheOptionsLetIt) {
    frmSQLBuilder form(BuilderCaller::Main, "");
    form.show();
    AutoConnect = false;
    EXPECT_EQ(RunText(form, "select 1"), "");
    EXPECT_EQ(recorder.Take(), "exclamation: Please connect to the target database.");
    ASSERT_TRUE(ConnectTarget());
    EXPECT_EQ(RunText(form, "select 1"), "1 /");
    EXPECT_EQ(TargetConnectionState, 'C');
}

TEST_F(FrmSQLBuilderTest, StopsARunThatTakesLong) {
    frmSQLBuilder form(BuilderCaller::Main, "");
    form.show();
    // One that gives rows without end, and one that is at work without giving any.
    for (const std::string what : {"i", "count(*)"}) {
        Box(form).setPlainText(QString::fromStdString(
            "with recursive n(i) as (select 1 union all select i + 1 from n) select " + what + " from n"));
        Click(form, "cmdRun");
        EXPECT_EQ(TextOf(form, "lblStatus"), "Running SQL script, please wait...");
        QTest::qWait(100);
        form.reject();
        ASSERT_TRUE(form.isVisible());
        ASSERT_TRUE(WaitUntilRun(form));
        EXPECT_TRUE(Results(form).ends_with("Stopped/"));
        EXPECT_EQ(TextOf(form, "lblStatus"), "");
    }
    EXPECT_EQ(RunText(form, "select 7"), "7 /");
}

TEST_F(FrmSQLBuilderTest, LoadsAndSavesFiles) {
    frmSQLBuilder form(BuilderCaller::Main, "");
    form.show();
    const std::string path = folder.Path("a.sql");
    const auto use = [&](const char* button, const std::string& answer) {
        picker.answers.push_back(answer);
        Click(form, button);
        return picker.requests.back().title + "|" + picker.requests.back().filter;
    };
    const std::string filter = "|SQL (*.sql)|*.sql|All files (*.*)|*.*";
    EXPECT_EQ(use("cmdLoad", path), "Select SQL file to Open" + filter);
    EXPECT_EQ(recorder.Take(), "exclamation: Cannot open the file: " + path);
    Box(form).setPlainText("select 'é'\nfrom T");
    EXPECT_EQ(use("cmdSave", path), "Select SQL file" + filter);
    EXPECT_EQ(ReadFile(path), "select 'é'\r\nfrom T");
    Box(form).setPlainText("other");
    use("cmdLoad", path);
    EXPECT_EQ(TextOf(form, "rtfSQL"), "select 'é'\nfrom T");
    folder.Write("old.sql", "select '\xE9'");
    use("cmdLoad", folder.Path("old.sql"));
    EXPECT_EQ(TextOf(form, "rtfSQL"), "select 'é'");
    Box(form).undo();
    EXPECT_EQ(TextOf(form, "rtfSQL"), "select 'é'\nfrom T");
    recorder.yesNoAnswers = {false};
    use("cmdSave", folder.Path("old.sql"));
    EXPECT_EQ(ReadFile(folder.Path("old.sql")), "select '\xE9'");
    recorder.Take();
    use("cmdSave", folder.Path("missing/a.sql"));
    EXPECT_EQ(recorder.Take().substr(0, 22), "exclamation: Cannot wr");
}

TEST_F(FrmSQLBuilderTest, ColoursTheText) {
    frmSQLBuilder form(BuilderCaller::ViewData, "select 'a from\nb' /* no\nselect */ from [where] -- 5");
    form.show();
    // The starts of the pieces that have a colour of their own.
    std::string pieces;
    for (QTextBlock block = Box(form).document()->begin(); block.isValid(); block = block.next()) {
        for (const auto& range : block.layout()->formats())
            pieces += block.text().mid(range.start, range.length).toStdString() + "|";
        pieces += "\n";
    }
    EXPECT_EQ(pieces, "select|'a from|\nb'|/* no|\nselect */|from|-- 5|\n");
}

// The callers' road: what goes in and what comes back.
TEST_F(RuleScreenTest, BuildsTheWhereClauseOfADeleteRule) {
    OpenDelete({Product});
    ClickNode(Rules(), {0});
    auto& where = Child<QPlainTextEdit>(*screen, "rtfWhere");
    const struct {
        const char *before, *shown, *button, *after;
    } cases[] = {
        {"Price > 5", "where Price > 5", "cmdClose", "where Price > 5 AND "},
        {"WHERE Price > 5", "WHERE Price > 5", "cmdCancel", "WHERE Price > 5"},
        {"Price > 5", "where Price > 5", "cmdCancel", "Price > 5"},
    };
    for (const auto& c : cases) {
        where.setPlainText(c.before);
        WhenShown("frmSQLBuilder", [&](QWidget& form) {
            EXPECT_EQ(TextOf(form, "rtfSQL"), c.shown);
            PickWord(form, "lstOperators", "<Space>");
            PickWord(form, "lstStatements", "AND");
            Click(form, c.button);
        });
        Click(*screen, "cmdBuildWhere");
        EXPECT_EQ(Text("rtfWhere"), c.after);
    }
    where.setPlainText("");
    WhenShown("frmSQLBuilder", [](QWidget& form) { Click(form, "cmdClose"); });
    Click(*screen, "cmdBuildWhere");
    EXPECT_EQ(Text("rtfWhere"), "");
}

}  // namespace vellumark::test
