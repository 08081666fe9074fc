#pragma once

#include <string>
#include <vector>

#include "platform/dao/database.h"
#include "repository/modTargetFormats.h"

// The tables and columns of a schema while it is being captured, and their rows in [Table] and [Column].
namespace vellumark {

struct SchemaColumn {
    std::string name;
    std::string attribute;    // its name in a model
    std::string adoDataType;  // the name of the reported type
    int adoMaximumLength = 0;
    int adoPrecision = 0;
    int adoScale = 0;
    DataType dataType = DataType::Character;
    int maximumLength = 0;
    int precision = 0;
    int scale = 0;
    int size = 0;
    bool identifier = false;
    bool optional = false;
    int sortOrder = 0;
    int parentTableId = 0;  // 0 unless the column is a foreign key
    int parentColumnId = 0;
};

// Ids are places in the lists, counted from 1.
struct SchemaTable {
    std::string name;
    std::string owner;
    std::vector<SchemaColumn> columns;
    std::string entity = {};  // its name in a model
};

// Adds the rows of a schema that has none yet: all of them, or on an error none.
void AddSchemaRows(const dao::Database& repository, int schemaId, const std::vector<SchemaTable>& tables);

}  // namespace vellumark
