#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/dao/database.h"
#include "platform/output_file.h"
#include "tools/comparedSchema.h"
#include "tools/modVersionControl.h"

namespace vellumark {

// Carries the tables and columns of one Database schema onto another, with the rules of the other's
// Scenarios, and writes down each step. The Repository is open, in a transaction.
class SchemaCarrier {
 public:
    // With `deletes`, what only the target has goes.
    SchemaCarrier(int targetId, bool deletes, platform::OutputFile& log);

    void Carry(int sourceId);

 private:
    // A column of the target with its counterpart in the source.
    struct CarriedColumn {
        ColumnKey key;
        std::string table;
        std::string column;
        int parentTableId = 0;  // in the target
        int parentColumnId = 0;
        std::pair<int, int> sourceParent;
        bool isForeignKey = false;
    };

    void CreateTargetTable(const ComparedTable& source);
    void UpdateTargetTable(const ComparedTable& source, const ComparedTable& target);
    void DeleteTargetTable(const ComparedTable& target);
    void UpdateColumns(const ComparedTable& source, const ComparedTable& target);
    void CreateTargetColumn(const ComparedTable& source, const ComparedColumn& column,
                            const ComparedTable& target);
    void UpdateTargetColumn(const ComparedColumn& source, const ComparedColumn& target, const ColumnKey& key);
    void DeleteTargetColumn(const ColumnKey& key, const std::string& name);
    void UpdateTargetForeignKeys();
    void UpdateTargetForeignKey(const CarriedColumn& column);

    void Remember(const ComparedTable& source, const ComparedColumn& column, const ComparedTable& target,
                  const ComparedColumn& targetColumn);
    void LogChange(std::string_view indent, std::string_view caption, FieldKind kind, const dao::Value& from,
                   const dao::Value& to);

    const int targetId_;
    const bool deletes_;
    platform::OutputFile& log_;
    dao::Recordset newTables_;
    dao::Recordset newColumns_;
    dao::Statement changeColumn_;
    int NextTableId_ = 0;
    int NextColumnId_ = 0;
    std::map<std::pair<int, int>, CarriedColumn> carried_;  // by the source's Ids of table and column
};

}  // namespace vellumark
