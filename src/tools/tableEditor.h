#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/tableShape.h"

namespace vellumark {

// What a row was to be changed to: one entry a column, nothing where the column is left alone.
using ColumnChanges = std::vector<std::optional<HeldField>>;

// Adds, changes and deletes single rows of a table. A row is only touched when it still is as it was read and
// can be told from all others. Every call may throw the database's error, and kRowHasChanged, kRowIsGone and
// kRowNotAlone; the table is as it was then. Must not outlive the connection.
class TableEditor {
 public:
    TableEditor(const dao::RowAccess& access, TableShape shape);

    // Each gives the row as the table has it now, with what defaults and triggers have done.
    HeldRow Insert(const ColumnChanges& values) const;
    HeldRow Update(const HeldRow& row, const ColumnChanges& changes) const;
    void Delete(const HeldRow& row) const;
    // Nothing when the row is no longer there.
    std::optional<HeldRow> Reread(const HeldRow& row) const;

 private:
    struct Condition {
        std::string text;
        std::vector<dao::Value> values;
        bool complete = true;  // all fields of the row's identity could be compared
    };
    Condition ConditionFor(const HeldRow& row) const;
    void AddTest(Condition& condition, std::size_t field, const HeldField& value) const;
    std::optional<HeldRow> FindNew() const;
    std::vector<HeldRow> Find(const Condition& condition) const;
    Condition CheckedCondition(const HeldRow& row) const;
    std::optional<HeldRow> Run(const std::string& sql, const std::vector<dao::Value>& values,
                               bool returns) const;
    HeldRow AsStored(HeldRow row) const;

    const dao::RowAccess& access_;
    TableShape shape_;
    RowDialect dialect_;
};

}  // namespace vellumark
