#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/access/file.h"

namespace vellumark::access {

// Types of columns as the file numbers them.
enum class Kind : std::uint8_t {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    LongBinary = 11,
    Memo = 12,
    Guid = 15,
    Numeric = 16,
    Complex = 18,  // several values or attachments, which stand in a hidden table
    BigInt = 19,
    ExtendedDate = 20,
};

struct Column {
    std::string name;
    Kind kind = Kind::Text;
    int length = 0;  // bytes; 0 for memos and objects
    int precision = 0;
    int scale = 0;
    int place = 0;      // among the columns as people see them
    bool fixed = true;  // in the part of a row that has the same layout in each

    // Where a row keeps the value.
    unsigned number = 0;         // of its bit in the row's null mask
    unsigned fixedOffset = 0;    // of a fixed one
    unsigned variablePlace = 0;  // of another, among those
};

struct Index {
    std::string name;
    bool primary = false;
    bool unique = false;
    std::vector<std::size_t> columns;  // places in Table::columns
};

// A table as its definition tells.
struct Table {
    std::uint32_t page = 0;  // where the definition starts
    std::uint32_t rowCount = 0;
    bool hasVariableColumns = false;
    RowPlace pageMap;             // of the list of pages with its rows
    std::vector<Column> columns;  // as people see them
    std::vector<Index> indexes;   // without those that relationships made
};

// Throws as ThrowDamaged does.
Table ReadTable(File& file, std::uint32_t page);

// The pages that a page map lists. Throws when the file has fewer.
std::vector<std::uint32_t> ReadPageMap(File& file, RowPlace map);

}  // namespace vellumark::access
