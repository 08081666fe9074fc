#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/modDatabaseConnection.h"
#include "schema/modTableList.h"
#include "tools/heldRows.h"
#include "tools/modSQLRun.h"
#include "tools/plainSelect.h"
#include "tools/tableEditor.h"
#include "tools/tableReader.h"

namespace vellumark {

// What the user has made of a cell.
struct TypedCell {
    std::size_t column = 0;
    bool isNull = false;
    std::string text;
};

enum class RowChange {
    Done,
    Refused,  // the row is held again as the table has it
    Gone,     // the row was no longer there and isn't held any more
};

// The rows of a table or of a SQL text on an open connection, and their changes. A failure shows the
// database's own words. Must not outlive the connection.
class ViewedData {
 public:
    // `protocol` is 'A' or 'D'.
    ViewedData(const OpenConnections& connections, char protocol);

    // Shows the table from its first rows on; fReadMore brings the others. False behind a message, with what
    // was shown before still there.
    bool fShowTable(const TableEntry& table);
    // Runs the text and shows its rows, if it has any. `goOn` is called now and then meanwhile; where it says
    // false, the text is stopped and any rows that have come are shown. False behind a message.
    bool fRunSQL(std::string_view text, const std::function<bool()>& goOn);
    // Reads the table anew, up to `rows` rows at least. False behind a message.
    bool fRequery(std::size_t rows);

    // "Table: " and its name, "SQL Results", or empty before anything is shown.
    const std::string& Title() const { return title_; }
    const std::vector<ShownColumn>& Columns() const { return shape_.columns; }
    // Whether the rows are those of one table, so that they can be edited.
    bool IsTable() const { return editor_ != nullptr; }
    bool HasMore() const { return reader_ != nullptr; }
    bool fReadMore(std::size_t rows);

    std::size_t Count() const { return rows_.Count(); }
    // Without the hidden fields.
    HeldRow Row(std::size_t place) const;

    // The row comes to the end.
    bool fInsert(const std::vector<TypedCell>& cells);
    RowChange Update(std::size_t place, const std::vector<TypedCell>& cells);
    RowChange Delete(std::size_t place);

 private:
    void Open(const TableEntry& table);
    void Forget();
    void ReadRest();
    bool ReadRest(const std::function<bool()>& goOn);
    ColumnChanges Changes(const std::vector<TypedCell>& cells) const;
    RowChange Change(std::size_t place, const std::function<void(const HeldRow&)>& change);
    RowChange ShowAsStored(std::size_t place);
    std::optional<TableShape> ShapeOf(const std::optional<PlainSelect>& select) const;
    SQLResult RunText(std::string_view text, const std::optional<TableShape>& shape,
                      const std::function<bool()>& goOn);
    void TakeResult(HeldRows rows, const std::vector<std::string>& names,
                    const std::optional<TableShape>& shape);

    const OpenConnections& connections_;
    char protocol_;
    std::unique_ptr<dao::RowAccess> access_;
    bool judges_;
    std::string title_;
    TableEntry table_;  // of the table mode
    TableShape shape_;
    HeldRows rows_;
    std::unique_ptr<TableReader> reader_;
    std::unique_ptr<TableEditor> editor_;
};

}  // namespace vellumark
