#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dao/declared_type.h"
#include "platform/dao/row_access.h"

// What is to be known of a table before its rows are shown and edited.
namespace vellumark {

// One field of a row as it is held and shown.
struct HeldField {
    enum class Kind : char { Null, Text, Bytes };

    Kind kind = Kind::Null;
    bool cut = false;  // the database has more of it than is held
    std::string text;

    bool operator==(const HeldField&) const = default;
};

// The fields of a row: the hidden ones first, then the columns.
using HeldRow = std::vector<HeldField>;

// A longer value is held in part, in bytes.
inline constexpr std::size_t kLongestHeld = 32768;

HeldField NullField();
HeldField TextField(std::string text);
HeldField BytesField(std::string bytes);
// The row on which the cursor stands.
HeldRow ReadHeldRow(const platform::Cursor& rows);
dao::Value ToValue(const HeldField& field);

// What the systems do in ways of their own.
struct RowDialect {
    bool embedded = false;                // what is typed is judged here, since the engine takes anything
    bool pages = false;                   // "limit n offset m" and "limit n"
    bool comparesRows = false;            // "(a, b) > (?, ?)" goes by an index
    bool seeks = false;                   // reading on behind a key is quicker than an offset
    bool returns = false;                 // "insert ... returning"
    bool returnsUpdated = false;          // "update ... returning"
    std::string_view one;                 // limits a change to one row
    std::string_view emptyInsert;         // the values of a row of defaults
    std::vector<std::string_view> rowId;  // what tells a row that has no key
    std::string_view newRow;              // the condition for the row inserted last
    std::size_t sortedRowId = 1;          // how many parts of it can be sorted by
    bool prefersRowId = false;
    std::string_view exactText;  // makes a comparison of texts exact
};
RowDialect DialectOf(const dao::RowAccess& access);

struct ShownColumn {
    std::string name;
    dao::ColumnType type;
    bool writable = true;  // not computed by the database
    bool required = false;

    bool IsBinary() const;
    bool IsText() const;
    bool IsNumber() const;
};

struct TableShape {
    std::string name;                 // for people
    std::string reference;            // for statements
    std::vector<std::string> hidden;  // expressions that are read in front of the columns
    std::vector<ShownColumn> columns;
    std::vector<std::size_t> identity;  // the fields that tell a row from all others
    bool unique = true;                 // false when equal rows can't be told apart
    std::vector<std::size_t> order;     // the fields to sort by

    std::size_t FieldCount() const { return hidden.size() + columns.size(); }
    const ShownColumn& ColumnOf(std::size_t field) const { return columns[field - hidden.size()]; }
};

// Throws the database's error for a table that can't be read.
TableShape ReadTableShape(const dao::RowAccess& access, std::string_view owner, std::string_view table);

// The expression for a field in a statement, and for all of them as a select list.
std::string FieldExpression(const dao::RowAccess& access, const TableShape& shape, std::size_t field);
std::string SelectList(const dao::RowAccess& access, const TableShape& shape);

}  // namespace vellumark
