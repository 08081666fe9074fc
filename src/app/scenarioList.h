#pragma once

#include <QLabel>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <string>
#include <vector>

namespace vellumark {

// Large icons stand above the highlight of their text, so a selected one is not drawn for the highlight's
// colour.
class LargeIconDelegate : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

enum class ScenarioView { Icon, SmallIcon, List, Report };

// The Scenarios of one kind in four views on the same entries and the same selection. An empty list shows a
// hint in their place, whose links name commands.
class ScenarioList : public QStackedWidget {
    Q_OBJECT

 public:
    struct Entry {
        std::string name;
        std::string lastModified;
    };

    explicit ScenarioList(QWidget* parent = nullptr);

    void SetPicture(const QIcon& picture);
    // Replaces what is shown; the selected name stays selected.
    void ShowEntries(const std::vector<Entry>& entries);
    void ShowHint(const QString& hint);
    void ShowView(ScenarioView view);

    // Makes the entry of that name the selected one and brings it into view; an empty name selects none.
    void SelectName(std::string_view name);
    // Empty when none is selected.
    std::string SelectedName() const;
    bool IsEmpty() const { return entries_.rowCount() == 0; }

 signals:
    // By the user, with mouse or keyboard.
    void SelectionChanged();
    // By a double click or Enter.
    void Opened();
    void LinkActivated(const QString& command);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void SetUpReport();
    void SetCell(int row, int column, std::string_view text);
    void ArrangeList();
    void ShowPage();

    QStandardItemModel entries_;
    QSortFilterProxyModel sorted_;
    LargeIconDelegate largeIcons_;
    QStyledItemDelegate smallIcons_;
    QListView list_;
    QTreeView report_;
    QLabel hint_;
    QIcon picture_;
    ScenarioView view_ = ScenarioView::Icon;
    bool showing_ = false;  // a change of the selection is not the user's
};

}  // namespace vellumark
