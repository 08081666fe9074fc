#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/ado/connection.h"
#include "platform/dao/table_def.h"
#include "schema/modSchemaRows.h"

// Links the columns of a captured schema along the foreign keys that its database reports.
namespace vellumark {

// Finds tables and columns by name: the very name, or else without regard to case; of tables with one name
// the first counts. Keeps a reference to the tables, whose lists must not grow meanwhile.
class ForeignKeyMap {
 public:
    explicit ForeignKeyMap(std::vector<SchemaTable>& tables);

    // Does nothing when one of the four names is not in the schema.
    void SetForeignKey(std::string_view parentTable, std::string_view parentColumn,
                       std::string_view childTable, std::string_view childColumn);

 private:
    // Places from 1 by name.
    class Names {
     public:
        void Add(const std::string& name, int id);
        // 0 for an unknown name.
        int Find(std::string_view name) const;

     private:
        std::unordered_map<std::string, int> exact_;
        std::unordered_map<std::string, int> folded_;
    };

    std::vector<SchemaTable>& tables_;
    Names tableIds_;
    std::vector<Names> columnIds_;  // in the order of the tables
};

// The keys of the embedded database.
void MapRelations(const std::vector<dao::Relation>& relations, ForeignKeyMap& map);

// The keys that the source reports, or else those of the Jet catalog in `mdbFile`. False when neither can be
// read. Throws when the source answers no longer.
bool fMapForeignKeys(const ado::Connection& source, std::string_view ownerFilter, const std::string& mdbFile,
                     ForeignKeyMap& map);

// False when the source reports no keys.
bool fMapForeignKeysSchema(const ado::Connection& source, std::string_view ownerFilter, ForeignKeyMap& map);

// False when the file can't be read.
bool fMapForeignKeysCatalog(const std::string& mdbFile, ForeignKeyMap& map);

}  // namespace vellumark
