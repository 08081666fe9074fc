#include "platform/access/rows.h"

namespace vellumark::access {

namespace {

constexpr std::size_t kOwnerAt = 4;

// The size of a value that is always the same, or 0.
std::size_t SizeOf(Kind kind) {
    switch (kind) {
        case Kind::Byte:
            return 1;
        case Kind::Integer:
            return 2;
        case Kind::Long:
        case Kind::Single:
        case Kind::Complex:
            return 4;
        case Kind::Currency:
        case Kind::Double:
        case Kind::Date:
        case Kind::BigInt:
            return 8;
        case Kind::Guid:
            return 16;
        case Kind::Numeric:
            return 17;
        default:
            return 0;
    }
}

}  // namespace

Rows::Rows(File& file, const Table& table)
    : file_(file), table_(table), pages_(ReadPageMap(file, table.pageMap)) {}

bool Rows::NextPage() {
    while (pageAt_ < pages_.size()) {
        pageBytes_ = file_.Read(pages_[pageAt_++], page_);
        if (pageBytes_.Byte(0) != MDB_PAGE_DATA || pageBytes_.Long(kOwnerAt) != table_.page) {
            skippedPages_ = true;
            continue;
        }
        rowsOnPage_ = file_.RowCount(pageBytes_);
        rowAt_ = 0;
        return true;
    }
    // A list of pages may name one too many, but then no row is missed.
    if (skippedPages_ && rowsSeen_ < table_.rowCount)
        ThrowDamaged("rows of a table are missing");
    return false;
}

bool Rows::Next() {
    while (rowAt_ < rowsOnPage_ || NextPage()) {
        if (rowAt_ >= rowsOnPage_)
            continue;
        const PageRow row = file_.RowOn(pageBytes_, rowAt_++);
        if (row.deleted)
            continue;
        ++rowsSeen_;
        Take(row.moved ? MovedRow({row.content.Long(0)}) : row.content);
        return true;
    }
    return false;
}

// A row that outgrew its page; its new page counts it as deleted.
Bytes Rows::MovedRow(RowPlace place) {
    constexpr int kMostMoves = 8;
    for (int moves = 0; moves < kMostMoves; ++moves) {
        const PageRow row = file_.Read(place, movedPage_);
        if (!row.moved)
            return row.content;
        place.packed = row.content.Long(0);
    }
    ThrowDamaged("a row is nowhere to be found");
}

RowPlace Rows::Place() const {
    return {pages_[pageAt_ - 1] << 8 | static_cast<std::uint32_t>(rowAt_ - 1)};
}

// A row: the number of its columns, the fixed fields, the variable ones, their offsets backwards, the number
// of those, and a mask with a bit for each column that isn't Null.
void Rows::Take(Bytes row) {
    row_ = row;
    columnsInRow_ = file_.IsJet3() ? row.Byte(0) : row.Short(0);
    const std::size_t maskSize = (columnsInRow_ + 7) / 8;
    if (maskSize > row.Size())
        ThrowDamaged("a row is too short");
    nullMask_ = row.From(row.Size() - maskSize);
    variableEnds_.clear();
    if (!table_.hasVariableColumns)
        return;
    if (file_.IsJet3())
        FindJet3VariableFields();
    else
        FindVariableFields();
}

void Rows::FindVariableFields() {
    const std::size_t countAt = row_.Size() - nullMask_.Size() - 2;
    const std::size_t count = row_.Short(countAt);
    for (std::size_t i = 0; i <= count; ++i)
        variableEnds_.push_back(row_.Short(countAt - 2 - i * 2));
}

// Offsets have one byte; a row longer than that lists, between them and the count, the fields from which on
// another 256 is to be added.
void Rows::FindJet3VariableFields() {
    const std::size_t countAt = row_.Size() - nullMask_.Size() - 1;
    const std::size_t count = row_.Byte(countAt);
    const std::size_t listed = (row_.Size() - 1) / 256;
    const std::size_t firstAt = countAt - 1 - listed;
    // The last one has no meaning when the list itself makes the row that long.
    const std::size_t jumps = listed - ((firstAt - count) / 256 < listed ? 1 : 0);
    std::size_t used = 0;
    for (std::size_t i = 0; i <= count; ++i) {
        while (used < jumps && row_.Byte(countAt - 1 - used) == i)
            ++used;
        variableEnds_.push_back(row_.Byte(firstAt - i) + used * 256);
    }
}

// A row is as long as its table had columns when it was written.
bool Rows::HasBit(unsigned number) const {
    return number < columnsInRow_ && (nullMask_.Byte(number / 8) >> (number % 8) & 1) != 0;
}

std::optional<Bytes> Rows::Field(const Column& column) const {
    if (column.kind == Kind::Boolean || !HasBit(column.number))
        return std::nullopt;
    const std::size_t known = SizeOf(column.kind);
    if (column.fixed) {
        const std::size_t head = file_.IsJet3() ? 1 : 2;
        return row_.Part(head + column.fixedOffset,
                         known != 0 ? known : static_cast<std::size_t>(column.length));
    }
    if (column.variablePlace + 1 >= variableEnds_.size())
        return std::nullopt;
    const std::size_t start = variableEnds_[column.variablePlace];
    const std::size_t end = variableEnds_[column.variablePlace + 1];
    if (start > end || end - start < known)
        ThrowDamaged("a field has no sensible size");
    return row_.Part(start, end - start);
}

}  // namespace vellumark::access
