#pragma once

#include <optional>

#include "platform/access/definition.h"

namespace vellumark::access {

// The rows of a table, from its first page to its last. Throws as ThrowDamaged does.
class Rows {
 public:
    // The table must stay while its rows are read.
    Rows(File& file, const Table& table);

    // Goes to the first row, then to the next one; false behind the last.
    bool Next();
    // Where the row stands, which no other row of the file shares.
    RowPlace Place() const;

    // What the row holds of a column, as it is stored; nothing for Null and for every Boolean. Valid until
    // Next.
    std::optional<Bytes> Field(const Column& column) const;
    bool IsTrue(const Column& column) const { return HasBit(column.number); }

 private:
    bool NextPage();
    Bytes MovedRow(RowPlace place);
    void Take(Bytes row);
    void FindVariableFields();
    void FindJet3VariableFields();
    bool HasBit(unsigned number) const;

    File& file_;
    const Table& table_;
    std::vector<std::uint32_t> pages_;
    std::size_t pageAt_ = 0;  // of the next page
    bool skippedPages_ = false;
    std::uint32_t rowsSeen_ = 0;

    Page page_;
    Bytes pageBytes_;
    std::size_t rowsOnPage_ = 0;
    std::size_t rowAt_ = 0;  // of the next row on the page
    Page movedPage_;

    Bytes row_;
    unsigned columnsInRow_ = 0;
    Bytes nullMask_;
    std::vector<std::size_t> variableEnds_;  // the start of the first one, then the end of each
};

}  // namespace vellumark::access
