#include "scenario/screens/frmTTR.h"

#include <QApplication>
#include <QEvent>
#include <QSettings>
#include <QTabBar>
#include <initializer_list>
#include <utility>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/screens/icons.h"
#include "platform/screens/qtText.h"
#include "platform/screens/sqlHighlighter.h"
#include "repository/modVellumark.h"
#include "repository/screens/textFields.h"
#include "scenario/modDTRmaintenance.h"
#include "scenario/modRuleSelection.h"
#include "scenario/modTTRandRTDmaintenance.h"
#include "scenario/screens/columnRuleEditor.h"
#include "scenario/screens/modRefreshForms.h"
#include "scenario/screens/ruleTree.h"
#include "ui_frmTTR.h"

namespace vellumark {

namespace {

constexpr int kColumnTabs = 3;
constexpr const char* kSplitKey = "split/frmTTR";

void ShowFocus(RuleTree& tree, QLabel& heading, bool focused) {
    tree.ShowFocused(focused);
    QFont font = QGuiApplication::font();
    font.setBold(focused);
    heading.setFont(font);
}

// A list that opens a node can't let an error pass.
RuleTree::ColumnReader Reader(std::vector<ColumnRuleNode> (*load)(int)) {
    return [load](int ruleId) {
        try {
            return load(ruleId);
        } catch (const platform::Error& error) {
            platform::ShowUnexpectedError("reading the columns", error);
            return std::vector<ColumnRuleNode>();
        }
    };
}

}  // namespace

frmTTR::frmTTR(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmTTR>()) {
    ui_->setupUi(this);
    ui_->splitLists->setSizes({220, 330, 560});
    ui_->splitLists->restoreState(QSettings().value(kSplitKey).toByteArray());
    SetUpTrees();
    SetUpMoves();
    SetUpDetails();
    SetUpButtons();
    ShowData();
    ui_->TListTTR->setFocus();
}

frmTTR::~frmTTR() {
    QSettings().setValue(kSplitKey, ui_->splitLists->saveState());
    // The focus still moves while the controls go.
    disconnect(qApp, nullptr, this, nullptr);
}

void frmTTR::SetUpTrees() {
    for (const RuleSide side : {RuleSide::TSO, RuleSide::TTR}) {
        RuleTree& tree = Tree(side);
        connect(&tree, &RuleTree::Chosen, this, [this, side] { Run([=, this] { SelectNode(side); }); });
        connect(
            &tree, &RuleTree::Dropped, this,
            [this, side](const RuleDrag& drag, const RulePlace& place) {
                Run([=, this] { Drop(side, drag, place); });
            },
            Qt::QueuedConnection);
    }
    ui_->TListTTR->SetHint("Drag tables here from the left, or select one there and press Insert.");
    for (const auto& [filter, tree] :
         {std::pair{ui_->txtFilterTSO, ui_->TListTSO}, std::pair{ui_->txtFilterTTR, ui_->TListTTR}}) {
        connect(filter, &QLineEdit::textChanged, tree, &RuleTree::FilterTables);
        connect(filter, &QLineEdit::textChanged, this, &frmTTR::EnableMoves);
        filter->installEventFilter(this);  // Down goes on to the list
    }
}

// A key acts on the list that has the keyboard, a button on the one that is highlighted. They differ when a
// rule was added by key: the list of tables keeps the keyboard for the next one.
void frmTTR::SetUpMoves() {
    const struct {
        QToolButton* button;
        QAction* action;
        const char* icon;
        void (frmTTR::*act)(RuleSide);
    } moves[] = {
        {ui_->cmdAdd, ui_->actAdd, "arrow-right", &frmTTR::AddCurrent},
        {ui_->cmdRemove, ui_->actRemove, "arrow-left", &frmTTR::RemoveCurrent},
        {ui_->cmdMoveUp, ui_->actMoveUp, "arrow-up", &frmTTR::MoveUp},
        {ui_->cmdMoveDown, ui_->actMoveDown, "arrow-down", &frmTTR::MoveDown},
    };
    for (const auto& move : moves) {
        move.action->setIcon(LineIcon(move.icon));
        move.button->setIcon(move.action->icon());
        move.button->setToolTip(move.action->toolTip());
        move.button->setAccessibleName(move.action->text());
        connect(move.action, &QAction::triggered, this,
                [this, act = move.act] { Run([=, this] { (this->*act)(KeyboardSide()); }); });
        connect(move.button, &QToolButton::clicked, this,
                [this, act = move.act] { Run([=, this] { (this->*act)(side_); }); });
    }
    connect(qApp, &QApplication::focusChanged, this, &frmTTR::EnableMoves);
    ui_->TListTSO->addActions({ui_->actAdd, ui_->actMoveUp, ui_->actMoveDown});
    ui_->TListTTR->addActions({ui_->actRemove, ui_->actMoveUp, ui_->actMoveDown});
}

void frmTTR::SetUpDetails() {
    for (QLineEdit* field : {ui_->txtTabStart, ui_->txtTabEnd})
        NumericKeys(*field, DataType::Integer);
    SelectTextOnFocus(*ui_->fraTable);
    std::make_unique<SqlHighlighter>(*ui_->rtfWhere).release();  // the box's own
    editor_ = std::make_unique<ColumnRuleEditor>(*ui_->vstDetails, nullptr);
    OrderTabs();
    editor_->SetOnSourceChanged([this] { Tree(side_).ReloadColumns(selected_.ruleId); });
}

// The fields of the column's tabs were made last and come where they are seen.
void frmTTR::OrderTabs() {
    QWidgetList fields;
    for (QWidget* field = nextInFocusChain(); field != this; field = field->nextInFocusChain())
        for (int tab = 0; tab < kColumnTabs; ++tab)
            if (ui_->vstDetails->widget(tab)->isAncestorOf(field) && field->window() == this &&
                (field->focusPolicy() & Qt::TabFocus) != 0)
                fields.append(field);
    QWidget* last = ui_->vstDetails->tabBar();
    for (QWidget* field : fields)
        setTabOrder(std::exchange(last, field), field);
    setTabOrder(last, ui_->rtfWhere);
}

bool frmTTR::eventFilter(QObject* watched, QEvent* event) {
    const bool down =
        event->type() == QEvent::KeyPress && dynamic_cast<QKeyEvent&>(*event).key() == Qt::Key_Down;
    if (down)
        Tree(watched == ui_->txtFilterTSO ? RuleSide::TSO : RuleSide::TTR).setFocus(Qt::TabFocusReason);
    return down || Screen::eventFilter(watched, event);
}

void frmTTR::SetUpButtons() {
    ui_->cmdDiagram->setIcon(LineIcon("link"));
    connect(ui_->cmdApply, &QPushButton::clicked, this, [this] { Run([this] { Apply(); }); });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->cmdGenerate, &QPushButton::clicked, this,
            [this] { OpenFrom([this] { ShowGenerateData(parentWidget()); }); });
    connect(ui_->cmdLoadFile, &QPushButton::clicked, this, [this] { OpenFrom([this] { OpenLoadFile(); }); });
    connect(ui_->cmdDiagram, &QPushButton::clicked, this, [this] { OpenFrom([this] { OpenDiagram(); }); });
    connect(ui_->cmdBuildWhere, &QPushButton::clicked, this, &frmTTR::BuildWhere);
}

void frmTTR::Run(const std::function<void()>& operation) {
    if (running_)
        return;
    running_ = true;
    try {
        const RepositoryScope repository;
        TakeSelection();
        operation();
        EnableMoves();
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("editing the Scenario", error);
    }
    running_ = false;
}

frmTTR::Scenario frmTTR::SessionScenario() {
    return {CurrentDBSId, CurrentTSOId, CurrentTSOType, CurrentTSOName};
}

void frmTTR::SetSessionScenario(const Scenario& scenario) {
    CurrentDBSId = scenario.schemaId;
    CurrentTSOId = scenario.id;
    CurrentTSOType = scenario.type;
    CurrentTSOName = scenario.name;
}

bool frmTTR::event(QEvent* event) {
    const bool handled = Screen::event(event);
    if (event->type() == QEvent::WindowActivate)
        ShowData();
    else if (event->type() == QEvent::ApplicationPaletteChange)
        focusTree(side_);
    return handled;
}

void frmTTR::ShowData() {
    if (running_ || DiagramOpen_)
        return;
    if (SessionScenario() != shown_)
        LeaveScenario();
    if (SessionState != kOpenWithScenario) {
        QDialog::reject();
        return;
    }
    Run([this] {
        if (SessionScenario() != shown_)
            OpenScenarioLists();
        else
            RefreshLists();
    });
}

void frmTTR::OpenScenarioLists() {
    shown_ = SessionScenario();
    selected_ = {};
    setWindowTitle(QString("Edit %1 Data Scenario: ").arg(IsInsert() ? "Insert" : "Delete") +
                   ToQt(shown_.name));
    ui_->txtFilterTSO->clear();
    ui_->txtFilterTTR->clear();
    if (IsInsert())
        Init_InsertTSO();
    else
        Init_DeleteTSO();
    LoadLists();
    Tree(RuleSide::TSO).GoTo({});
    Tree(RuleSide::TTR).GoTo(Tree(RuleSide::TTR).FirstRule());
    SelectNode(RuleSide::TTR);
}

void frmTTR::RefreshLists() {
    LoadLists();
    // A range that was set elsewhere goes before one that was typed here and not applied.
    if (IsInsert() && vellumark::displayTTRDetails() != stored_)
        Display();
}

void frmTTR::Init_InsertTSO() {
    ui_->TListTSO->SetUp(RuleSide::TSO, Reader(LoadDefaultColumnNodes));
    ui_->TListTTR->SetUp(RuleSide::TTR, Reader(LoadRuleColumnNodes));
    ui_->lblTTR->setText("Create data on following Tables:");
    ShowControls(true);
}

void frmTTR::Init_DeleteTSO() {
    ui_->TListTSO->SetUp(RuleSide::TSO, nullptr);
    ui_->TListTTR->SetUp(RuleSide::TTR, nullptr);
    ui_->lblTTR->setText("Delete data from following Tables:");
    ShowControls(false);
}

void frmTTR::ShowControls(bool insert) {
    for (QWidget* shown :
         std::initializer_list<QWidget*>{ui_->cmdDiagram, ui_->lblTabStart, ui_->txtTabStart, ui_->lblTabEnd,
                                         ui_->txtTabEnd, ui_->lblQuantity, ui_->txtQuantity})
        shown->setVisible(insert);
    for (int tab = 0; tab < ui_->vstDetails->count(); ++tab)
        ui_->vstDetails->setTabEnabled(tab, (tab < kColumnTabs) == insert);
    ui_->vstDetails->setCurrentIndex(insert ? 0 : kColumnTabs);
}

void frmTTR::LoadLists() {
    Tree(RuleSide::TSO).ShowRules(ToQt(CurrentDBSName), LoadDefaultRuleList());
    Tree(RuleSide::TTR)
        .ShowRules(ToQt(shown_.name), IsInsert() ? LoadScenarioRuleList() : LoadDeleteRuleList());
    if (Tree(side_).Current() != selected_) {  // it is gone, and with it what was not applied
        selected_ = {};
        SelectNode(side_);
    }
}

// What was edited belongs to the Scenario that was shown, if that is still there.
void frmTTR::LeaveScenario() {
    if (selected_.ruleId == 0)
        return;
    const Scenario session = SessionScenario();
    SetSessionScenario(shown_);
    Run([this] {
        const bool there = IsInsert() ? vellumark::displayTTRDetails().has_value()
                                      : vellumark::displayDTRDetails().has_value();
        if (there && !Apply())
            platform::ShowExclamation("The last change was not saved.");
    });
    SetSessionScenario(session);
    selected_ = {};
}

void frmTTR::reject() {
    LeaveScenario();
    QDialog::reject();
}

RuleTree& frmTTR::Tree(RuleSide side) const {
    return side == RuleSide::TSO ? *ui_->TListTSO : *ui_->TListTTR;
}

RuleSide frmTTR::KeyboardSide() const {
    return Tree(RuleSide::TSO).hasFocus() ? RuleSide::TSO : RuleSide::TTR;
}

void frmTTR::focusTree(RuleSide side) {
    side_ = side;
    const bool defaults = side == RuleSide::TSO;
    ShowFocus(*ui_->TListTSO, *ui_->lblTSO, defaults);
    ShowFocus(*ui_->TListTTR, *ui_->lblTTR, !defaults);
    const QString which = defaults ? "DEFAULT " : "";
    ui_->fraTable->setTitle(which + (IsInsert() ? "Table Generation Details" : "Table Details"));
    ui_->fraColumn->setTitle(which + (IsInsert() ? "Column Generation Details" : "Where Clause"));
}

void frmTTR::TakeSelection() const {
    RuleScenarioId = side_ == RuleSide::TSO ? 0 : shown_.id;
    CurrentTTRId = selected_.ruleId;
    CurrentTCRId = selected_.columnId;
}

void frmTTR::SelectNode(RuleSide side) {
    SelectNode(side, Tree(side).Current());
}

void frmTTR::SelectNode(RuleSide side, RulePlace place) {
    if (side == side_ && place == selected_ && place.ruleId != 0)
        return;
    if (!Apply()) {
        platform::ShowExclamation("The last modification has not been saved");
        Tree(side).setFocus();
    }
    focusTree(side);
    selected_ = place;
    if (Tree(side).Current() != place)
        Tree(side).GoTo(place);
    TakeSelection();
    Display();
}

void frmTTR::Display() {
    if (IsInsert()) {
        displayTTRDetails();
        editor_->fDisplayTCRDetails_Main();
    } else {
        displayDTRDetails();
    }
    EnableDisable();
}

void frmTTR::EnableDisable() {
    const bool onRule = selected_.ruleId != 0;
    ui_->cmdDiagram->setEnabled(side_ == RuleSide::TTR);
    ui_->cmdLoadFile->setEnabled(IsInsert() && onRule);
    ui_->cmdApply->setEnabled(onRule);
}

void frmTTR::EnableMoves() {
    const auto canMove = [this](RuleSide side, int step) {
        return Tree(side).Neighbour(Tree(side).Current(), step).ruleId != 0;
    };
    ui_->actAdd->setEnabled(Tree(RuleSide::TSO).Current().IsTable());
    ui_->actRemove->setEnabled(Tree(RuleSide::TTR).Current().IsTable());
    ui_->actMoveUp->setEnabled(canMove(KeyboardSide(), -1));
    ui_->actMoveDown->setEnabled(canMove(KeyboardSide(), 1));
    ui_->cmdAdd->setEnabled(ui_->actAdd->isEnabled());
    ui_->cmdRemove->setEnabled(ui_->actRemove->isEnabled());
    ui_->cmdMoveUp->setEnabled(canMove(side_, -1));
    ui_->cmdMoveDown->setEnabled(canMove(side_, 1));
}

}  // namespace vellumark
