#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/dao/declared_type.h"

namespace vellumark::dao {

struct Field {
    std::string name;
    ColumnType type;
    bool required = false;
    bool allowZeroLength = true;
    int ordinalPosition = 0;  // from 0
};

struct Index {
    std::string name;
    bool primary = false;
    bool unique = false;
    std::vector<std::string> fields;
};

struct TableDef {
    std::string name;
    std::vector<Field> fields;
    std::vector<Index> indexes;
};

struct RelationField {
    std::string name;         // in the referenced table
    std::string foreignName;  // in the referring table
};

struct Relation {
    std::string table;         // the referenced table
    std::string foreignTable;  // the referring table
    std::vector<RelationField> fields;
};

}  // namespace vellumark::dao
