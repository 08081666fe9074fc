#pragma once

#include <QProxyStyle>

namespace vellumark {

// The desktop's own style with the margins and spacing of this program's screens, which forms leave unset.
// Fields that can't be written in lie on the ground of their screen.
class HouseStyle : public QProxyStyle {
 public:
    using QProxyStyle::QProxyStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace vellumark
