#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "schema/modSchemaRows.h"

namespace vellumark {

// The tables of a COOL:Gen model while it is being read. Names are looked up without regard to case; of equal
// ones the first counts. Looking up a name that isn't there throws kNoCurrentRecord.
class COOLGenTables {
 public:
    void AddTable(std::string_view name, std::string_view entity);
    int TableId(std::string_view name) const;
    int TableIdOfEntity(std::string_view entity) const;

    void AddColumn(int tableId, SchemaColumn column);
    SchemaColumn& Column(int tableId, std::string_view name);
    // By the attribute that the column was added with, whatever has become of it since.
    int ColumnIdOfAttribute(int tableId, std::string_view attribute) const;

    const std::vector<SchemaTable>& Rows() const { return tables_; }

 private:
    using Ids = std::unordered_map<std::string, int>;
    struct ColumnIds {
        Ids byName;
        Ids byAttribute;
    };

    std::vector<SchemaTable> tables_;
    Ids byName_;
    Ids byEntity_;
    std::vector<ColumnIds> columnIds_;  // one a table
};

// Makes the column a foreign key to the parent entity's attribute.
void fSetCOOLGenForeignKey(COOLGenTables& tables, std::string_view columnName, int tableId,
                           std::string_view parentEntity, std::string_view parentAttribute);

}  // namespace vellumark
