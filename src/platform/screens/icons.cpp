#include "platform/screens/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

#include "platform/screens/qtText.h"

// The linker drops what only registers itself, so a static library's resource is named once. The macro wants
// to stand outside of any namespace.
static void LoadIconResource() {
    Q_INIT_RESOURCE(icons);
}

namespace vellumark {

namespace {

// Draws the SVG at the moment it is needed, so that it follows a change between light and dark.
class LineIconEngine : public QIconEngine {
 public:
    explicit LineIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        const bool selected = mode == QIcon::Selected;
        const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QPalette::ColorRole role = selected ? QPalette::HighlightedText : QPalette::ButtonText;
        QByteArray coloured = drawing_;
        coloured.replace("currentColor", QGuiApplication::palette().color(group, role).name().toUtf8());
        QSvgRenderer(coloured).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return std::make_unique<LineIconEngine>(drawing_).release(); }

 private:
    QByteArray drawing_;
};

}  // namespace

QIcon LineIcon(std::string_view name) {
    LoadIconResource();
    QFile file(":/icons/" + ToQt(name) + ".svg");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(std::make_unique<LineIconEngine>(file.readAll()).release());
}

}  // namespace vellumark
