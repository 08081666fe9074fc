#include "repository/screens/frmHelp.h"

#include <QGuiApplication>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QSettings>
#include <QShortcut>
#include <QTreeWidgetItemIterator>
#include <QWindow>

#include "platform/screens/icons.h"
#include "platform/screens/qtText.h"
#include "repository/modSequentialFileServices.h"
#include "ui_frmHelp.h"

namespace vellumark {

namespace {

constexpr const char* kHome = "index.html";
constexpr const char* kMessages = "messages.html";
constexpr const char* kZoomKey = "help/zoom";
constexpr int kMostZoom = 10;
constexpr int kPageMargin = 18;
constexpr int kContentsWidth = 310;
constexpr int kPlaceRole = Qt::UserRole;

QString GuideFolder() {
    return ToQt(HelpPagePath(kHome)).chopped(static_cast<int>(std::string_view(kHome).size()) + 1);
}

}  // namespace

frmHelp::frmHelp(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmHelp>()), folder_(GuideFolder()), guide_(folder_) {
    ui_->setupUi(this);
    setWindowFlags(Qt::Window);
    ui_->txtPage->document()->setDocumentMargin(kPageMargin);
    ui_->splitPanes->setSizes({kContentsWidth, width() - kContentsWidth});
    ui_->splitPanes->setStretchFactor(1, 1);
    FillContents();
    ConnectButtons();
    AddShortcuts();
    Zoom(QSettings().value(kZoomKey).toInt());
}

frmHelp::~frmHelp() = default;

void frmHelp::FillContents() {
    std::vector<QTreeWidgetItem*> parents = {ui_->treeContents->invisibleRootItem()};
    for (const GuideEntry& entry : guide_.Contents()) {
        parents.resize(static_cast<std::size_t>(entry.depth) + 1);
        auto item = std::make_unique<QTreeWidgetItem>(QStringList(entry.title));
        item->setData(0, kPlaceRole, entry.place);
        parents.back()->addChild(item.get());
        parents.push_back(item.release());
    }
    ui_->treeContents->expandAll();
    connect(ui_->treeContents, &QTreeWidget::itemClicked, this,
            [this](const QTreeWidgetItem* item) { ShowPlace(item->data(0, kPlaceRole).toString()); });
    connect(ui_->treeContents, &QTreeWidget::itemActivated, this,
            [this](const QTreeWidgetItem* item) { ShowPlace(item->data(0, kPlaceRole).toString()); });
}

void frmHelp::ConnectButtons() {
    QTextBrowser& page = *ui_->txtPage;
    for (const auto& [button, icon] : {std::pair(ui_->cmdBack, "arrow-left"),
                                       {ui_->cmdForward, "arrow-right"},
                                       {ui_->cmdHome, "home"},
                                       {ui_->cmdZoomIn, "zoom-in"},
                                       {ui_->cmdZoomOut, "zoom-out"},
                                       {ui_->cmdPrint, "print"}})
        button->setIcon(LineIcon(icon));
    connect(ui_->cmdBack, &QToolButton::clicked, &page, &QTextBrowser::backward);
    connect(ui_->cmdForward, &QToolButton::clicked, &page, &QTextBrowser::forward);
    connect(&page, &QTextBrowser::backwardAvailable, ui_->cmdBack, &QWidget::setEnabled);
    connect(&page, &QTextBrowser::forwardAvailable, ui_->cmdForward, &QWidget::setEnabled);
    connect(&page, &QTextBrowser::sourceChanged, this, &frmHelp::FollowSource);
    connect(ui_->cmdHome, &QToolButton::clicked, this, [this] { ShowPlace(kHome); });
    connect(ui_->cmdZoomIn, &QToolButton::clicked, this, [this] { Zoom(1); });
    connect(ui_->cmdZoomOut, &QToolButton::clicked, this, [this] { Zoom(-1); });
    connect(ui_->cmdPrint, &QToolButton::clicked, this, &frmHelp::Print);
    connect(ui_->txtSearch, &QLineEdit::textChanged, this, &frmHelp::Search);
    connect(ui_->txtSearch, &QLineEdit::returnPressed, this, [this] { ui_->lstHits->setCurrentRow(0); });
    connect(ui_->lstHits, &QListWidget::currentItemChanged, this, &frmHelp::OpenHit);
    connect(ui_->lstHits, &QListWidget::itemClicked, this, &frmHelp::OpenHit);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::close);
}

void frmHelp::AddShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto act) {
        connect(std::make_unique<QShortcut>(keys, this).release(), &QShortcut::activated, this, act);
    };
    add(QKeySequence::Find, &frmHelp::ShowSearch);
    add(QKeySequence::Print, &frmHelp::Print);
    add(QKeySequence::ZoomIn, [this] { Zoom(1); });
    add(Qt::CTRL | Qt::Key_Equal, [this] { Zoom(1); });
    add(QKeySequence::ZoomOut, [this] { Zoom(-1); });
    add(Qt::CTRL | Qt::Key_0, [this] { Zoom(-zoom_); });
    add(Qt::ALT | Qt::Key_Left, [this] { ui_->txtPage->backward(); });
    add(Qt::ALT | Qt::Key_Right, [this] { ui_->txtPage->forward(); });
    add(Qt::ALT | Qt::Key_Home, [this] { ShowPlace(kHome); });
}

void frmHelp::ShowPlace(const QString& place) {
    QUrl url = QUrl::fromLocalFile(folder_ + "/" + place.section('#', 0, 0));
    url.setFragment(place.section('#', 1));
    ui_->txtPage->setSource(url);
}

void frmHelp::ShowScreen(const QString& screen) {
    const QString place = guide_.PlaceOfScreen(screen);
    ShowPlace(place.isEmpty() ? kHome : place);
}

void frmHelp::ShowMessage(const QString& text) {
    ShowPlace(kMessages);
    const QString message = guide_.MessageIn(text);
    if (!message.isEmpty())
        Highlight({message});
}

void frmHelp::ShowSearch() {
    ui_->tabPane->setCurrentWidget(ui_->pageSearch);
    ui_->txtSearch->setFocus();
    ui_->txtSearch->selectAll();
}

// A screen that waits for an answer shuts all windows out but its own children: so this becomes one.
bool frmHelp::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked && windowHandle() != nullptr)
        windowHandle()->setTransientParent(QGuiApplication::modalWindow());
    return Screen::event(event);
}

// The page's own place in the list, else that of the page as a whole.
void frmHelp::FollowSource(const QUrl& source) {
    ui_->txtPage->setExtraSelections({});
    setWindowTitle(ui_->txtPage->documentTitle() + " - Vellumark Help");
    QTreeWidgetItem* entry = EntryOf(source.fileName() + "#" + source.fragment());
    ui_->treeContents->setCurrentItem(entry == nullptr ? EntryOf(source.fileName()) : entry);
}

QTreeWidgetItem* frmHelp::EntryOf(const QString& place) const {
    for (QTreeWidgetItemIterator at(ui_->treeContents); *at != nullptr; ++at)
        if ((*at)->data(0, kPlaceRole).toString() == place)
            return *at;
    return nullptr;
}

void frmHelp::Search() {
    const QSignalBlocker quiet(ui_->lstHits);
    ui_->lstHits->clear();
    const QString words = ui_->txtSearch->text();
    for (const GuideSection& hit : guide_.Search(words)) {
        const QString title = hit.title.simplified();
        const bool first = title == hit.pageTitle;
        auto item = std::make_unique<QListWidgetItem>(first ? title : hit.pageTitle + ": " + title);
        item->setData(kPlaceRole, hit.place);
        ui_->lstHits->addItem(item.release());
    }
    const int count = ui_->lstHits->count();
    ui_->lblHits->setText(words.trimmed().isEmpty() ? tr("All words must occur.")
                          : count == 0              ? tr("Nothing was found.")
                          : count == 1              ? tr("1 place")
                                                    : tr("%1 places").arg(count));
}

void frmHelp::OpenHit(const QListWidgetItem* item) {
    if (item == nullptr)
        return;
    ShowPlace(item->data(kPlaceRole).toString());
    Highlight(ui_->txtSearch->text().simplified().split(' ', Qt::SkipEmptyParts));
}

// Marks every occurrence. A page that is at its top goes on to the first one.
void frmHelp::Highlight(const QStringList& texts) {
    QTextCharFormat marked;
    marked.setBackground(QColor(0xff, 0xe0, 0x70));
    marked.setForeground(Qt::black);
    QList<QTextEdit::ExtraSelection> selections;
    const QTextDocument& document = *ui_->txtPage->document();
    for (const QString& text : texts)
        for (QTextCursor at = document.find(text); !at.isNull(); at = document.find(text, at))
            selections.append({at, marked});
    ui_->txtPage->setExtraSelections(selections);
    if (selections.isEmpty() || ui_->txtPage->source().hasFragment())
        return;
    QTextCursor first = selections.front().cursor;
    first.clearSelection();
    ui_->txtPage->setTextCursor(first);
    ui_->txtPage->ensureCursorVisible();
}

void frmHelp::Zoom(int steps) {
    const int wanted = std::clamp(zoom_ + steps, -kMostZoom / 2, kMostZoom);
    ui_->txtPage->zoomIn(wanted - zoom_);
    zoom_ = wanted;
    QSettings().setValue(kZoomKey, zoom_);
}

void frmHelp::Print() {
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        ui_->txtPage->print(&printer);
}

}  // namespace vellumark
