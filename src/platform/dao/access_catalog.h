#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dao/statement.h"
#include "platform/dao/table_def.h"

namespace vellumark::dao {

// What a Microsoft Access file tells of its tables. They come by name; those of other files, to which it has
// only links, are left out, and so are the ones that Access keeps for its own and that aren't called MSys.
struct AccessCatalog {
    std::string version;  // "Microsoft Access 97"
    std::vector<TableDef> tables;
    std::vector<Relation> relations;
};

// Opens such a file as a database in memory that shows its tables and can't be changed, so that statements
// are those of the embedded store. Throws what access::File throws.
ConnectionHandle OpenAccessFile(const std::string& path, std::string_view password, AccessCatalog& catalog);

}  // namespace vellumark::dao
