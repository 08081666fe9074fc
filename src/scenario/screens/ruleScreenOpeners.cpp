#include "scenario/screens/ruleScreenOpeners.h"

#include "tools/screens/builderOpeners.h"
#include "tools/screens/frmCreateLoadFile.h"

namespace vellumark {

void OpenCreateLoadFile(QWidget& parent) {
    frmCreateLoadFile(&parent).exec();
}

std::optional<std::string> BuildWhereClause(QWidget& parent, const std::string& whereClause) {
    return BuildSQLText(&parent, BuilderCaller::WhereClause, whereClause);
}

}  // namespace vellumark
