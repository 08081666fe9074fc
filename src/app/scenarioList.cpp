#include "app/scenarioList.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include "platform/screens/qtText.h"

namespace vellumark {

namespace {

enum Column { kName, kLastModified };

constexpr int kLargeIcon = 32;
constexpr int kLongestShown = 34;  // characters of a name before it is cut

bool IsEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

// A large icon with three lines of its name below, all in the widths of the letters.
QSize LargeIconCell(const QFontMetrics& letters) {
    return {20 * letters.averageCharWidth(), kLargeIcon + 4 * letters.lineSpacing()};
}

}  // namespace

QSize LargeIconDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
    return LargeIconCell(option.fontMetrics);
}

void LargeIconDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
    const qreal ratio = option->widget == nullptr ? 1 : option->widget->devicePixelRatioF();
    option->icon = QIcon(option->icon.pixmap(option->decorationSize, ratio));
}

ScenarioList::ScenarioList(QWidget* parent) : QStackedWidget(parent), entries_(0, 2) {
    entries_.setHorizontalHeaderLabels({"Test Scenario", "Last Modified"});
    sorted_.setSourceModel(&entries_);
    sorted_.setSortCaseSensitivity(Qt::CaseInsensitive);
    list_.setModel(&sorted_);
    SetUpReport();
    hint_.setAlignment(Qt::AlignCenter);
    hint_.setWordWrap(true);
    hint_.setMargin(24);
    hint_.setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    hint_.setContextMenuPolicy(Qt::NoContextMenu);
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(&list_), static_cast<QAbstractItemView*>(&report_)}) {
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        view->setSelectionMode(QAbstractItemView::SingleSelection);
        view->setFrameShape(QFrame::NoFrame);
        view->setAccessibleName("Test Scenarios");
        view->installEventFilter(this);
        addWidget(view);
        connect(view, &QAbstractItemView::doubleClicked, this, &ScenarioList::Opened);
    }
    addWidget(&hint_);
    report_.setSelectionModel(list_.selectionModel());
    connect(list_.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!showing_)
            emit SelectionChanged();
    });
    connect(&hint_, &QLabel::linkActivated, this, &ScenarioList::LinkActivated);
    ShowPage();
}

void ScenarioList::SetUpReport() {
    report_.setModel(&sorted_);
    report_.setRootIsDecorated(false);
    report_.setUniformRowHeights(true);
    report_.setAllColumnsShowFocus(true);
    report_.setSortingEnabled(true);
    QHeaderView& header = *report_.header();
    header.setSortIndicator(-1, Qt::AscendingOrder);
    header.setSortIndicatorClearable(true);
    header.setStretchLastSection(true);
    header.resizeSection(kName, fontMetrics().averageCharWidth() * 2 * kLongestShown);
    entries_.setHeaderData(kLastModified, Qt::Horizontal,
                           "When the Scenario's folder or a file in it last changed", Qt::ToolTipRole);
}

void ScenarioList::SetPicture(const QIcon& picture) {
    picture_ = picture;
}

void ScenarioList::ShowEntries(const std::vector<Entry>& entries) {
    const QScopedValueRollback guard(showing_, true);
    const std::string selected = SelectedName();
    entries_.setRowCount(static_cast<int>(entries.size()));
    for (std::size_t row = 0; row < entries.size(); ++row) {
        SetCell(static_cast<int>(row), kName, entries[row].name);
        SetCell(static_cast<int>(row), kLastModified, entries[row].lastModified);
    }
    SelectName(selected);
    ArrangeList();
    ShowPage();
}

void ScenarioList::SetCell(int row, int column, std::string_view text) {
    QStandardItem* cell = entries_.item(row, column);
    if (cell == nullptr) {
        cell = std::make_unique<QStandardItem>().release();
        if (column == kName)
            cell->setIcon(picture_);
        entries_.setItem(row, column, cell);
    }
    if (const QString shown = ToQt(text); cell->text() != shown) {
        cell->setText(shown);
        cell->setToolTip(column == kName ? shown : QString());
    }
}

void ScenarioList::ShowHint(const QString& hint) {
    hint_.setText(hint);
}

void ScenarioList::ShowView(ScenarioView view) {
    view_ = view;
    ArrangeList();
    ShowPage();
}

// Short names stand close together; long ones are cut, and their tooltip tells the rest.
void ScenarioList::ArrangeList() {
    const int character = fontMetrics().averageCharWidth();
    const int line = fontMetrics().lineSpacing();
    const bool large = view_ == ScenarioView::Icon;
    const int small = style()->pixelMetric(QStyle::PM_SmallIconSize);
    list_.setItemDelegate(large ? static_cast<QStyledItemDelegate*>(&largeIcons_) : &smallIcons_);
    list_.setViewMode(large ? QListView::IconMode : QListView::ListMode);
    list_.setMovement(QListView::Static);
    list_.setResizeMode(QListView::Adjust);
    list_.setFlow(view_ == ScenarioView::List ? QListView::TopToBottom : QListView::LeftToRight);
    list_.setWrapping(true);
    list_.setWordWrap(large);
    const int icon = large ? kLargeIcon : small;
    list_.setIconSize(QSize(icon, icon));
    const int width = list_.sizeHintForColumn(kName) + 2 * character;
    list_.setGridSize(large ? LargeIconCell(fontMetrics())
                            : QSize(std::min(width, 2 * kLongestShown * character), line + line / 2));
}

void ScenarioList::ShowPage() {
    QWidget* page = &list_;
    if (IsEmpty())
        page = &hint_;
    else if (view_ == ScenarioView::Report)
        page = &report_;
    setCurrentWidget(page);
    setFocusProxy(page);
}

void ScenarioList::SelectName(std::string_view name) {
    const QScopedValueRollback guard(showing_, true);
    QItemSelectionModel& selection = *list_.selectionModel();
    const QList<QStandardItem*> found = entries_.findItems(ToQt(name), Qt::MatchFixedString, kName);
    if (name.empty() || found.isEmpty()) {
        selection.clear();
        return;
    }
    if (SelectedName() == FromQt(found.front()->text()))
        return;
    const QModelIndex index = sorted_.mapFromSource(found.front()->index());
    selection.setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    list_.scrollTo(index);
    report_.scrollTo(index);
}

std::string ScenarioList::SelectedName() const {
    const QModelIndexList selected = list_.selectionModel()->selectedIndexes();
    return selected.isEmpty() ? std::string()
                              : FromQt(selected.front().siblingAtColumn(kName).data().toString());
}

bool ScenarioList::eventFilter(QObject* watched, QEvent* event) {
    if (!IsEnter(*event))
        return QStackedWidget::eventFilter(watched, event);
    if (!SelectedName().empty())
        emit Opened();
    return true;
}

}  // namespace vellumark
