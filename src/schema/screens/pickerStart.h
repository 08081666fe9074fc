#pragma once

#include <QLineEdit>
#include <string>
#include <string_view>

namespace vellumark {

// Where a file dialog starts: at the file that the field names, else in the folder of that option.
std::string PickerStart(const QLineEdit& field, std::string_view option);

}  // namespace vellumark
