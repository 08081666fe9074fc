#pragma once

#include <QProxyStyle>

namespace vellumark {

// The desktop's own style with the margins and spacing of this program's screens. Forms leave theirs unset.
class HouseStyle : public QProxyStyle {
 public:
    using QProxyStyle::QProxyStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
};

}  // namespace vellumark
