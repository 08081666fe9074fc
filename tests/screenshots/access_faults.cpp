#include "access_faults.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <map>

#include "platform/screens/qtText.h"

namespace vellumark::test {

namespace {

// What guidelines ask of text of common size.
constexpr double kLeastContrast = 4.5;

std::string Described(const QWidget& control) {
    return std::string(control.metaObject()->className()) + " " + FromQt(control.objectName());
}

// The toolkit makes parts of its own inside combo boxes, tables and scroll areas, and cares for them itself.
bool IsPartOfAnother(const QWidget& control) {
    if (control.objectName().startsWith("qt_") || qobject_cast<const QScrollBar*>(&control) != nullptr ||
        qobject_cast<const QHeaderView*>(&control) != nullptr)
        return true;
    const QWidget* parent = control.parentWidget();
    return parent != nullptr && (qobject_cast<const QComboBox*>(parent) != nullptr ||
                                 qobject_cast<const QAbstractItemView*>(parent) != nullptr ||
                                 parent->inherits("QAbstractSpinBox") || parent->inherits("QTabBar") ||
                                 parent->inherits("QLineEdit") || parent->inherits("QToolBar") ||
                                 parent->inherits("QMenuBar") || parent->inherits("QDialogButtonBox"));
}

bool IsControl(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr || widget.inherits("QLineEdit") ||
           widget.inherits("QComboBox") || widget.inherits("QAbstractSpinBox") ||
           widget.inherits("QAbstractItemView") || widget.inherits("QPlainTextEdit") ||
           widget.inherits("QTextEdit") || widget.inherits("QGraphicsView") ||
           widget.inherits("QDateTimeEdit");
}

bool HasName(QWidget& control) {
    const QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&control);
    return access != nullptr && !access->text(QAccessible::Name).trimmed().isEmpty();
}

// Of radio buttons the keyboard reaches the chosen one and goes on by arrows. A field that is only looked at
// may be left out.
bool IsReached(const QWidget& control) {
    if (qobject_cast<const QRadioButton*>(&control) != nullptr || !control.isEnabled())
        return true;
    const auto* field = qobject_cast<const QLineEdit*>(&control);
    return (control.focusPolicy() & Qt::TabFocus) != 0 || (field != nullptr && field->isReadOnly());
}

double Linear(double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
    const auto [low, high] = std::minmax({Luminance(a), Luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

// Text whose colours a document brings itself: SQL as it is highlighted, pages of the guide.
bool IsFaint(const QTextCharFormat& format, const QColor& ground) {
    return format.hasProperty(QTextFormat::ForegroundBrush) &&
           Contrast(format.foreground().color(),
                    format.hasProperty(QTextFormat::BackgroundBrush) ? format.background().color() : ground) <
               kLeastContrast;
}

bool HasFaintText(const QTextDocument& document, const QColor& ground) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (const QTextLayout::FormatRange& range : block.layout()->formats())
            if (IsFaint(range.format, ground))
                return true;
        for (auto at = block.begin(); !at.atEnd(); ++at)
            if (IsFaint(at.fragment().charFormat(), ground))
                return true;
    }
    return false;
}

// Labels stand on the shape that they belong to.
bool HasFaintLabel(const QGraphicsScene& scene) {
    return std::ranges::any_of(scene.items(), [](const QGraphicsItem* item) {
        const auto* label = dynamic_cast<const QGraphicsSimpleTextItem*>(item);
        const auto* shape =
            dynamic_cast<const QAbstractGraphicsShapeItem*>(label == nullptr ? nullptr : label->parentItem());
        return shape != nullptr && Contrast(label->brush().color(), shape->brush().color()) < kLeastContrast;
    });
}

bool PaintsFaintText(const QWidget& control) {
    const QColor ground = control.palette().color(QPalette::Active, QPalette::Base);
    if (const auto* plain = qobject_cast<const QPlainTextEdit*>(&control))
        return HasFaintText(*plain->document(), ground);
    if (const auto* rich = qobject_cast<const QTextEdit*>(&control))
        return HasFaintText(*rich->document(), ground);
    const auto* view = qobject_cast<const QGraphicsView*>(&control);
    return view != nullptr && view->scene() != nullptr && HasFaintLabel(*view->scene());
}

bool IsFaint(const QWidget& control) {
    const QPalette& palette = control.palette();
    return Contrast(palette.color(QPalette::Active, control.foregroundRole()),
                    palette.color(QPalette::Active, control.backgroundRole())) < kLeastContrast;
}

QString MnemonicText(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->isEnabled() ? button->text() : QString();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->buddy() != nullptr ? label->text() : QString();
    const auto* group = qobject_cast<const QGroupBox*>(&widget);
    return group != nullptr ? group->title() : QString();
}

void AddSharedMnemonics(const std::vector<QWidget*>& widgets, std::vector<std::string>& faults) {
    std::map<QKeySequence, const QWidget*> owners;
    for (const QWidget* widget : widgets) {
        const QKeySequence mnemonic = QKeySequence::mnemonic(MnemonicText(*widget));
        if (mnemonic.isEmpty())
            continue;
        const auto [owner, isNew] = owners.emplace(mnemonic, widget);
        if (!isNew)
            faults.push_back(Described(*widget) + " shares " + FromQt(mnemonic.toString()) + " with " +
                             Described(*owner->second));
    }
}

}  // namespace

std::vector<std::string> AccessFaults(const QWidget& screen) {
    std::vector<QWidget*> widgets;
    for (QWidget* widget : screen.findChildren<QWidget*>())
        if (widget->isVisibleTo(&screen) && widget->window() == &screen && !IsPartOfAnother(*widget))
            widgets.push_back(widget);
    std::vector<std::string> faults;
    for (QWidget* widget : widgets) {
        if (!IsControl(*widget))
            continue;
        if (!HasName(*widget))
            faults.push_back(Described(*widget) + " has no name");
        if (!IsReached(*widget))
            faults.push_back(Described(*widget) + " is not reached by the Tab key");
        if (IsFaint(*widget) || PaintsFaintText(*widget))
            faults.push_back(Described(*widget) + " has faint text");
    }
    AddSharedMnemonics(widgets, faults);
    return faults;
}

}  // namespace vellumark::test
