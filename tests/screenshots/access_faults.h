#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace vellumark::test {

// What keeps people without a mouse or without sight from a control of the screen as it is shown: a control
// that no name tells of, a button that the Tab key doesn't reach, a mnemonic that two controls share, text
// that is too faint on its ground. One line each.
std::vector<std::string> AccessFaults(const QWidget& screen);

}  // namespace vellumark::test
