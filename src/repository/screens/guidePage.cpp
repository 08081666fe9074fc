#include "repository/screens/guidePage.h"

#include <QImage>

namespace vellumark {

namespace {

constexpr int kWidestPicture = 720;  // as the pages say for browsers

}  // namespace

QVariant GuidePage::loadResource(int type, const QUrl& name) {
    const QVariant content = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource || name.fileName().endsWith(".svg"))
        return content;
    QImage picture = QImage::fromData(content.toByteArray());
    if (picture.width() > kWidestPicture) {
        picture =
            picture.scaledToWidth(qRound(kWidestPicture * devicePixelRatioF()), Qt::SmoothTransformation);
        picture.setDevicePixelRatio(devicePixelRatioF());
    }
    return picture;
}

}  // namespace vellumark
