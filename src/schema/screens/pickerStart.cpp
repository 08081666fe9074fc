#include "schema/screens/pickerStart.h"

#include "platform/error.h"
#include "platform/screens/qtText.h"

namespace vellumark {

std::string PickerStart(const QLineEdit& field, std::string OptionsRecord::*folder) {
    if (!field.text().isEmpty())
        return FromQt(field.text());
    try {
        return ReadOptions().*folder;
    } catch (const platform::Error&) {
        return {};
    }
}

}  // namespace vellumark
