#include "platform/screens/screenHelp.h"

#include <QShortcut>
#include <QWidget>
#include <memory>

namespace vellumark {

void AddHelpKey(QWidget& window, const std::function<void()>& help) {
    auto key = std::make_unique<QShortcut>(QKeySequence(Qt::Key_F1), &window);
    QObject::connect(key.release(), &QShortcut::activated, &window, help);
}

}  // namespace vellumark
