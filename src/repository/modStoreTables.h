#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellumark {

struct StoreColumn {
    std::string name;
    int type;      // a dao::FieldType
    int size = 0;  // characters of a text column
};

struct StoreTable {
    std::string name;
    std::vector<StoreColumn> columns;
    std::vector<std::string_view> indexes;  // column lists of look-ups that must not scan
};

std::vector<StoreTable> RepositoryTables();
std::vector<StoreTable> ValuesTables();

}  // namespace vellumark
