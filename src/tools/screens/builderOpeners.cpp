#include "tools/screens/builderOpeners.h"

#include "tools/screens/frmSQLBuilder.h"

namespace vellumark {

std::optional<std::string> BuildSQLText(QWidget* parent, BuilderCaller caller, const std::string& text) {
    frmSQLBuilder builder(caller, text, parent);
    if (builder.exec() != QDialog::Accepted)
        return std::nullopt;
    return caller == BuilderCaller::WhereClause ? WithoutBareWhere(builder.SQLText()) : builder.SQLText();
}

}  // namespace vellumark
