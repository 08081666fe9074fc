#include "platform/screens/houseStyle.h"

#include <QStyleOption>
#include <algorithm>

namespace vellumark {

namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 6;
constexpr int kButtonPadding = 10;  // beside a caption, on top of the style's own
constexpr int kShortestButton = 84;

}  // namespace

int HouseStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
            return kMargin;
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return kSpacing;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize HouseStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    QSize whole = QProxyStyle::sizeFromContents(type, option, size, widget);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (type == CT_PushButton && button != nullptr && !button->text.isEmpty())
        whole.setWidth(std::max(kShortestButton, whole.width() + kButtonPadding));
    return whole;
}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto* panel = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const bool writable =
        panel != nullptr && panel->state.testFlag(State_Enabled) && !panel->state.testFlag(State_ReadOnly);
    if (element != PE_PanelLineEdit || panel == nullptr || writable) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOptionFrame ground(*panel);
    ground.palette.setBrush(QPalette::Base, panel->palette.window());
    QProxyStyle::drawPrimitive(element, &ground, painter, widget);
}

}  // namespace vellumark
