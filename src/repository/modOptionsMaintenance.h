#pragma once

#include <string>
#include <vector>

#include "platform/dao/value.h"

namespace vellumark {

// A column of the one-row [Options] table with the value that a new row gets.
struct OptionColumn {
    std::string name;
    int type;  // a dao::FieldType
    int size;
    dao::Value initial;
};

std::vector<OptionColumn> OptionColumns();

// Adds the [Options] row where it is missing and takes the two options that live in the session.
void EnsureOptions();

}  // namespace vellumark
