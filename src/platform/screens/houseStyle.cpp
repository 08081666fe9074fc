#include "platform/screens/houseStyle.h"

namespace vellumark {

namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 6;

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

}  // namespace vellumark
