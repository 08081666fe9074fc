#include "album.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <cstdio>

#include "access_faults.h"
#include "platform/screens/qtText.h"

namespace vellumark::test {

namespace {

constexpr int kSettleMilliseconds = 50;

}  // namespace

void Album::Take(const std::string& name, QWidget& screen) const {
    screen.show();
    QTest::qWait(kSettleMilliseconds);
    screen.grab().save(ToQt(folder_ + "/" + name + ".png"));
    for (const std::string& fault : AccessFaults(screen)) {
        std::fprintf(stderr, "%s: %s\n", name.c_str(), fault.c_str());
        ++faults_;
    }
}

void Album::TakeModal(const std::string& name, const std::function<void()>& open,
                      const std::function<void(QWidget&)>& prepare) const {
    QTimer::singleShot(kSettleMilliseconds, [&] {
        QWidget* screen = QApplication::activeModalWidget();
        if (screen == nullptr)
            return;
        if (prepare)
            prepare(*screen);
        Take(name, *screen);
        screen->close();
    });
    open();
}

}  // namespace vellumark::test
