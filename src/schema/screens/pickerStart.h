#pragma once

#include <QLineEdit>
#include <string>

#include "repository/modOptionsMaintenance.h"

namespace vellumark {

// Where a file dialog starts: at the file that the field names, else in that folder of the options.
std::string PickerStart(const QLineEdit& field, std::string OptionsRecord::*folder);

}  // namespace vellumark
