#include <QTimer>
#include <QWindow>

#include "rule_screen.h"

namespace vellumark::test {

namespace {

constexpr int kSettleMilliseconds = 100;
constexpr int kStretch = 8;  // two of these begin a drag

// Drags by the mouse, from the press to the release, on a platform that carries drags through.
class RealDragTest : public RuleScreenTest {
 protected:
    void SetUp() override {
        if (QGuiApplication::platformName() != "minimal")
            GTEST_SKIP() << "no drags on this platform";
        RuleScreenTest::SetUp();
        OpenInsert({Customer, Supplier, Product});
    }

    QPoint PlaceOf(RuleTree& tree, const std::vector<int>& path) {
        return tree.viewport()->mapTo(screen.get(), tree.visualItemRect(&Node(tree, path)).center());
    }

    void Drag(QPoint from, QPoint to) {
        QWindow* window = screen->windowHandle();
        QTimer::singleShot(kSettleMilliseconds, [=] {
            QTest::mouseMove(window, (from + to) / 2);
            QTest::mouseMove(window, to);
            QTest::mouseRelease(window, Qt::LeftButton, {}, to);
        });
        QTest::mousePress(window, Qt::LeftButton, {}, from);
        for (const int stretch : {1, 2, 3})
            QTest::mouseMove(window, from + QPoint(0, stretch * kStretch));
        QTest::qWait(2 * kSettleMilliseconds);
    }

    std::string RuleTables() {
        return Rows(
            "select [FK TAB Id] from [TSO Insert Table Rule] where [FK TSO Id] = 2 order by [Sort Order]");
    }
};

TEST_F(RealDragTest, RulesComeMoveAndGo) {
    Drag(PlaceOf(Defaults(), {5}), PlaceOf(Rules(), {}));
    EXPECT_EQ(RuleTables(), "1\n2\n3\n6");
    Drag(PlaceOf(Rules(), {3}), PlaceOf(Rules(), {1}));
    EXPECT_EQ(RuleTables(), "1\n6\n2\n3");
    Drag(PlaceOf(Rules(), {0}), PlaceOf(Defaults(), {3}));
    EXPECT_EQ(RuleTables(), "6\n2\n3");
    Drag(PlaceOf(Rules(), {0, 2}), PlaceOf(Rules(), {0, 0}));
    EXPECT_EQ(
        Rows("select [Id] from [TSO Insert Column Rule] where [FK TSO Id] = 2 and [FK TTR Id] = 4 order by "
             "[Sort Order] limit 3"),
        "3\n1\n2");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_F(RealDragTest, WrongPlacesAreToldAfterTheDrag) {
    Drag(PlaceOf(Rules(), {0}), PlaceOf(Rules(), {1, 0}));
    EXPECT_EQ(recorder.Take(),
              "information: Drop the selected table onto a target table to move it above the target.");
    Drag(PlaceOf(Rules(), {0}), screen->rect().bottomLeft() + QPoint(20, -20));  // no list: no drop
    EXPECT_EQ(RuleTables(), "1\n2\n3");
    EXPECT_EQ(recorder.Take(), "");
}

}  // namespace

}  // namespace vellumark::test
