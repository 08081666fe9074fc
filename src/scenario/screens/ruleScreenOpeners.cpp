#include "scenario/screens/ruleScreenOpeners.h"

#include "platform/dialogs.h"

namespace vellumark {

namespace {

void TellMissing(const std::string& screen) {
    platform::ShowInformation(screen + " is not part of this version yet.");
}

}  // namespace

void OpenCreateLoadFile(QWidget& /*parent*/) {
    TellMissing("Create Load File");
}

std::optional<std::string> BuildWhereClause(QWidget& /*parent*/, const std::string& /*whereClause*/) {
    TellMissing("The SQL Builder");
    return std::nullopt;
}

}  // namespace vellumark
