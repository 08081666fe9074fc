#pragma once

#include <QWidget>
#include <optional>
#include <string>

// The screens of tools that the rule screen opens on what is selected in it.
namespace vellumark {

// The load file of the current Table rule.
void OpenCreateLoadFile(QWidget& parent);

// The where clause as it comes back from the SQL builder; nothing when it was cancelled.
std::optional<std::string> BuildWhereClause(QWidget& parent, const std::string& whereClause);

}  // namespace vellumark
