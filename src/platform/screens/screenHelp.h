#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace vellumark {

// What F1 opens on a screen, told by its object name, and on a message box, told by its text. The program
// sets them; without them F1 does nothing.
inline std::function<void(const QString& screen)> HelpOnScreen;
inline std::function<void(const QString& text)> HelpOnMessage;

// Gives a window the key F1.
void AddHelpKey(QWidget& window, const std::function<void()>& help);

}  // namespace vellumark
