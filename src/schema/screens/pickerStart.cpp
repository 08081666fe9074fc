#include "schema/screens/pickerStart.h"

#include "platform/error.h"
#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"

namespace vellumark {

std::string PickerStart(const QLineEdit& field, std::string_view option) {
    if (!field.text().isEmpty())
        return FromQt(field.text());
    try {
        const RepositoryScope repository;
        return dao::ToText(RepositoryDatabase.Lookup("select [" + std::string(option) + "] from [Options]"));
    } catch (const platform::Error&) {
        return {};
    }
}

}  // namespace vellumark
