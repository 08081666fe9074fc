#pragma once

#include <string>
#include <string_view>
#include <vector>

// Counts of a table's columns in the open schema.
namespace vellumark {

struct TableStatistics {
    int columns = 0;
    int identifier = 0;
    int foreignKey = 0;
    int mandatory = 0;
    int optional = 0;
    // By data type.
    int character = 0;
    int numeric = 0;
    int boolean = 0;
    int date = 0;
    int time = 0;
    int timestamp = 0;
    int blob = 0;
};

// The names of the schema's tables by the alphabet. Throws platform::Error.
std::vector<std::string> StatisticsTables();

// Zeros for a table that isn't there. Throws platform::Error.
TableStatistics CountTableColumns(std::string_view table);

}  // namespace vellumark
