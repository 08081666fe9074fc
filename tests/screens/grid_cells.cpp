#include "grid_cells.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <gtest/gtest.h>

#include "platform/screens/qtText.h"

namespace vellumark::test {

void TypeCell(RowGrid& grid, int row, int column, const std::string& text) {
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(row, column));
    QTest::keyClick(&grid, Qt::Key_F2);
    QWidget* editor = QApplication::focusWidget();
    ASSERT_NE(editor, &grid) << "the cell is closed";
    ASSERT_NE(editor, nullptr);
    if (auto* list = qobject_cast<QComboBox*>(editor)) {
        list->setCurrentText(ToQt(text));
    } else {
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, ToQt(text));
    }
    QTest::keyClick(editor, Qt::Key_Return);
    // The editor's text reaches the grid through the event queue.
    EXPECT_TRUE(QTest::qWaitFor([&grid] { return QApplication::focusWidget() == &grid; }));
}

std::string CellText(const RowGrid& grid, int row, int column) {
    return FromQt(grid.model()->index(row, column).data().toString());
}

std::string CellTexts(const RowGrid& grid, int rows) {
    std::string text;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < grid.model()->columnCount(); ++column) {
            if (column > 0)
                text += '|';
            text += CellText(grid, row, column);
        }
        text += '\n';
    }
    return text;
}

}  // namespace vellumark::test
