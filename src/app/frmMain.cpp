#include "app/frmMain.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QMenu>
#include <QSettings>
#include <QTimer>
#include <algorithm>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/screens/icons.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "scenario/modSchemaLifecycle.h"
#include "scenario/modTestScenarioMaintenance.h"
#include "schema/modDatabaseConnection.h"
#include "ui_frmMain.h"

namespace vellumark {

namespace {

constexpr const char* kGeometryKey = "frmMain/geometry";
constexpr const char* kToolBarsKey = "frmMain/toolBars";
constexpr const char* kViewKey = "frmMain/view";

QString PlainCaption(const Command& command) {
    return ToQt(command.caption).remove('&').remove("...");
}

QString ToolTip(const Command& command) {
    const QString text = PlainCaption(command);
    const QKeySequence shortcut(ToQt(command.shortcut));
    return shortcut.isEmpty() ? text : text + " (" + shortcut.toString(QKeySequence::NativeText) + ")";
}

QString Hint(ScenarioTab tab) {
    if (SessionState == kNotOpen)
        return "<p>No Database schema is open.</p><p><a href='ID_Open'>Open one</a>, or "
               "<a href='ID_NewDB'>read a new one</a> from your database to begin.</p>";
    return QString(
               "<p>This Database schema has no %1 Scenario yet.</p><p><a href='ID_NewTS'>Make a new one</a> "
               "to say which data to %2.</p>")
        .arg(tab == ScenarioTab::Insert ? "Insert" : "Delete",
             tab == ScenarioTab::Insert ? "create" : "delete");
}

void ShowNames(ScenarioList& list, const std::vector<std::string>& names) {
    std::vector<ScenarioList::Entry> entries;
    for (const std::string& name : names)
        entries.push_back({name, ScenarioLastModified(name)});
    list.ShowEntries(entries);
}

void Guard(const QString& doing, const std::function<void()>& operation) {
    try {
        operation();
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError(FromQt(doing), error);
    }
}

}  // namespace

frmMain::frmMain(QWidget* parent) : QMainWindow(parent), ui_(std::make_unique<Ui::frmMain>()) {
    ui_->setupUi(this);
    ui_->lvwInsertTSO->SetPicture(LineIcon("insert-data"));
    ui_->lvwDeleteTSO->SetPicture(LineIcon("delete-data"));
    statusPanel_.setObjectName("lblStatus");
    statusPanel_.setContentsMargins(6, 0, 6, 0);
    statusBar()->addWidget(&statusPanel_, 1);
    AddCommands();
    AddViewCommands();
    AddRefresh();
    AddMenus();
    AddToolBars();
    AddListMenus();
    for (ScenarioList* list : {ui_->lvwInsertTSO, ui_->lvwDeleteTSO}) {
        connect(list, &ScenarioList::SelectionChanged, this, &frmMain::TakeSelection);
        connect(list, &ScenarioList::Opened, &Action("ID_TbtEdit"), &QAction::trigger);
        connect(list, &ScenarioList::LinkActivated, this,
                [this](const QString& key) { Action(FromQt(key)).trigger(); });
    }
    connect(ui_->vstTSOList, &QTabWidget::currentChanged, this, &frmMain::TakeTab);
    RestoreLook();
    CommandRefresher = [this] { ShowSession(); };
    ShowSession();
    List(CurrentScenarioTab).setFocus();
}

frmMain::~frmMain() {
    CommandRefresher = nullptr;
}

void frmMain::AddCommands() {
    for (const Command& command : Commands()) {
        auto* action = new QAction(ToQt(command.caption), this);
        action->setObjectName(ToQt(command.key));
        action->setIcon(LineIcon(command.icon));
        action->setShortcut(QKeySequence(ToQt(command.shortcut)));
        action->setToolTip(ToolTip(command));
        action->setMenuRole(QAction::NoRole);
        addAction(action);
        if (command.run != nullptr)
            connect(action, &QAction::triggered, this, [this, &command] { Run(command); });
    }
}

void frmMain::AddViewCommands() {
    views_ = new QActionGroup(this);
    for (const char* key : {"ID_btnIcon", "ID_btnSmallIcon", "ID_btnList", "ID_btnReport"}) {
        Action(key).setCheckable(true);
        Action(key).setData(static_cast<int>(views_->actions().size()));
        views_->addAction(&Action(key));
    }
    connect(views_, &QActionGroup::triggered, this, [this](QAction* view) { SetView(view->data().toInt()); });
}

void frmMain::AddRefresh() {
    auto* refresh = new QAction(LineIcon("refresh"), "Refresh", this);
    refresh->setObjectName("ID_Refresh");
    refresh->setShortcut(QKeySequence::Refresh);
    addAction(refresh);
    connect(refresh, &QAction::triggered, this, &frmMain::RereadLists);
}

void frmMain::AddMenus() {
    const auto add = [this](const CommandBar& bar) {
        auto* menu = new QMenu(ToQt(bar.caption), this);
        menu->setObjectName(ToQt(bar.key));
        Fill(*menu, bar.entries);
        return menu;
    };
    add(GridWeaverMenu())->menuAction()->setObjectName(ToQt(GridWeaverMenu().key));
    for (const CommandBar& bar : Menus())
        ui_->mnuMain->addMenu(add(bar));
    ui_->mnuMain->addAction(&Action("ID_Exit"));
}

void frmMain::AddToolBars() {
    for (const CommandBar& bar : ToolBars())
        Fill(*findChild<QToolBar*>(ToQt(bar.key)), bar.entries);
}

void frmMain::AddListMenus() {
    for (ScenarioList* list : {ui_->lvwInsertTSO, ui_->lvwDeleteTSO}) {
        list->setContextMenuPolicy(Qt::ActionsContextMenu);
        Fill(*list, ScenarioMenu());
    }
}

void frmMain::Fill(QWidget& bar, const std::vector<std::string_view>& entries) {
    for (const std::string_view key : entries) {
        if (key == kSeparator) {
            auto* separator = new QAction(&bar);
            separator->setSeparator(true);
            bar.addAction(separator);
        } else {
            bar.addAction(&Action(key));
        }
    }
}

QAction& frmMain::Action(std::string_view key) {
    return *findChild<QAction*>(ToQt(key));
}

void frmMain::Run(const Command& command) {
    Guard(PlainCaption(command), [&] { command.run(this); });
    ShowSession();
}

void frmMain::OpenSisterFile() {
    const auto named = [](std::string_view word) {
        return std::ranges::find(CommandWords, word) != CommandWords.end();
    };
    if (named("CW"))
        Action("ID_CaseWeaver").trigger();
    else if (named("SW"))
        Action("ID_SheetWeaver").trigger();
}

void frmMain::ShowSession() {
    const auto paintToolBars = [this](bool paint) {
        ui_->tbrDatabase->setUpdatesEnabled(paint);
        ui_->tbrScenario->setUpdatesEnabled(paint);
    };
    paintToolBars(false);
    for (const Command& command : Commands())
        Action(command.key).setEnabled(IsAvailable(command.availability));
    paintToolBars(true);
    ShowSchema();
    ShowLists();
    ShowStatusPanel();
}

void frmMain::ShowSchema() {
    setWindowTitle(SessionState == kNotOpen ? "Vellumark" : "Vellumark - " + ToQt(ShownSchemaName));
    ui_->lblDBNameVal->setText(ToQt(ShownSchemaName));
    ui_->lblDBDescriptionVal->setText(ToQt(ShownSchemaDescription));
    ui_->lblModelVal->setText(ToQt(ShownModelName));
}

void frmMain::ShowLists() {
    ShowNames(*ui_->lvwInsertTSO, InsertScenarioNames);
    ShowNames(*ui_->lvwDeleteTSO, DeleteScenarioNames);
    ui_->lvwInsertTSO->ShowHint(Hint(ScenarioTab::Insert));
    ui_->lvwDeleteTSO->ShowHint(Hint(ScenarioTab::Delete));
    const QSignalBlocker quiet(ui_->vstTSOList);
    ui_->vstTSOList->setCurrentIndex(static_cast<int>(CurrentScenarioTab));
    List(CurrentScenarioTab).SelectName(CurrentTSOName);
}

void frmMain::ShowStatusPanel() {
    statusPanel_.setText(ToQt(progress_.empty() ? ConnectionStatusText : progress_));
}

void frmMain::ShowProgress(const std::string& text) {
    progress_ = text;
    ShowStatusPanel();
    statusBar()->repaint();
}

void frmMain::SetView(int view) {
    views_->actions().at(view)->setChecked(true);
    ui_->lvwInsertTSO->ShowView(static_cast<ScenarioView>(view));
    ui_->lvwDeleteTSO->ShowView(static_cast<ScenarioView>(view));
}

ScenarioList& frmMain::List(ScenarioTab tab) {
    return tab == ScenarioTab::Insert ? *ui_->lvwInsertTSO : *ui_->lvwDeleteTSO;
}

void frmMain::TakeTab(int index) {
    CurrentScenarioTab = static_cast<ScenarioTab>(index);
    const bool insert = CurrentScenarioTab == ScenarioTab::Insert;
    const std::vector<std::string>& names = insert ? InsertScenarioNames : DeleteScenarioNames;
    ScenarioList& list = List(CurrentScenarioTab);
    if (names.empty()) {
        SelectNoScenario();
        return;
    }
    if (list.SelectedName().empty())
        list.SelectName(names.front());
    TakeSelection();
}

void frmMain::TakeSelection() {
    const std::string name = List(CurrentScenarioTab).SelectedName();
    bool gone = false;
    Guard("selecting the Scenario", [&] { gone = !name.empty() && !OpenScenario(name); });
    ShowSession();
    if (!gone)
        return;
    platform::ShowExclamation("The Scenario is no longer in the Repository: " + name);
    RereadLists();
}

void frmMain::RereadLists() {
    Guard("reading the Scenarios", RereadDatabaseSchema);
    ShowSession();
}

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (loaded_)
        return;
    loaded_ = true;
    QTimer::singleShot(0, this, &frmMain::OpenSisterFile);
}

void frmMain::closeEvent(QCloseEvent* event) {
    RememberLook();
    event->accept();
    emit Closed();
}

void frmMain::RestoreLook() {
    const QSettings settings;
    restoreGeometry(settings.value(kGeometryKey).toByteArray());
    restoreState(settings.value(kToolBarsKey).toByteArray());
    const int last = static_cast<int>(views_->actions().size()) - 1;
    SetView(std::clamp(settings.value(kViewKey, 0).toInt(), 0, last));
}

void frmMain::RememberLook() const {
    QSettings settings;
    settings.setValue(kGeometryKey, saveGeometry());
    settings.setValue(kToolBarsKey, saveState());
    settings.setValue(kViewKey, views_->checkedAction()->data());
}

}  // namespace vellumark
