#pragma once

#include <string_view>

namespace vellumark {

// Makes a Category of each column's permitted values in the current schema's model files, and lets the System
// Scenario's rule for that column take its values from it. False behind a message, with nothing made.
bool fReadPermittedValues(std::string_view dbmsName);

}  // namespace vellumark
