#pragma once

#include <string>
#include <vector>

#include "platform/access/file.h"

namespace vellumark::access {

// What Access keeps of a column outside of the table's definition.
struct ColumnProperties {
    std::string column;
    bool required = false;
    bool allowZeroLength = true;
};

// Reads the block of properties that the catalog holds of a table. Throws as ThrowDamaged does.
std::vector<ColumnProperties> ReadProperties(File& file, Bytes block);

}  // namespace vellumark::access
