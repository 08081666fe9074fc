#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cursor.h"
#include "platform/dao/statement.h"
#include "platform/dao/value.h"

namespace vellumark::dao {

class Database;

// True when a recordset's source is a statement and no table's name.
bool IsSelect(std::string_view source);

// The rows of a table or a select statement, held in memory, with a current row. Rows of a single table can
// be added, edited and deleted. Must not outlive the open database. Reading a field where no row stands
// throws kNoCurrentRecord, an unknown field kNoSuchItem.
class Recordset {
 public:
    Recordset(const Database& database, std::string_view source, const Parameters& parameters);
    // Holds no rows: for adding.
    Recordset(const Database& database, std::string_view table);
    // Holds the rows' texts; they can't be changed.
    explicit Recordset(platform::Cursor& rows);

    bool IsEOF() const { return at_ >= Size(); }
    bool IsBOF() const { return at_ < 0; }
    int RecordCount() const { return static_cast<int>(rows_.size()); }

    void MoveFirst() { at_ = 0; }
    void MoveNext() { ++at_; }
    void MovePrevious() { --at_; }
    void MoveLast() { at_ = Size() - 1; }
    void Move(std::ptrdiff_t rows) { at_ += rows; }
    // Goes to the first row whose field has that text, without regard to case; false leaves the row as it
    // was.
    bool FindFirst(std::string_view field, std::string_view text);

    const std::vector<std::string>& FieldNames() const { return fields_; }
    const Value& Get(std::string_view field) const;
    int Long(std::string_view field) const { return ToLong(Get(field)); }
    bool Boolean(std::string_view field) const { return ToBoolean(Get(field)); }
    std::string Text(std::string_view field) const { return ToText(Get(field)); }
    bool IsNull(std::string_view field) const { return dao::IsNull(Get(field)); }

    void AddNew();
    void Edit();
    Recordset& Set(std::string_view field, const Parameter& value);
    void Update();
    void CancelUpdate() { mode_ = Mode::Browse; }
    // The row behind the deleted one becomes the current row.
    void Delete();

 private:
    enum class Mode { Browse, Add, Edit };
    struct Row {
        std::int64_t rowId;
        std::vector<Value> values;
    };

    std::ptrdiff_t Size() const { return static_cast<std::ptrdiff_t>(rows_.size()); }
    std::size_t FieldIndex(std::string_view field) const;
    Row& CurrentRow();
    void Load(Statement statement, bool withRowId);
    void Insert();
    void Change();

    sqlite3* connection_ = nullptr;
    std::string table_;  // empty when the rows can't be changed
    std::vector<std::string> fields_;
    std::vector<Row> rows_;
    std::ptrdiff_t at_ = 0;

    Mode mode_ = Mode::Browse;
    std::vector<std::size_t> changedFields_;
    std::vector<Value> changedValues_;
    std::vector<std::size_t> insertFields_;
    std::optional<Statement> insert_;
};

}  // namespace vellumark::dao
