#include "platform/access/definition.h"

#include <algorithm>

namespace vellumark::access {

namespace {

constexpr std::size_t kMostColumns = 255;
constexpr std::size_t kMostIndexes = 1000;

// How a version lays out what libmdb does not tell of.
struct IndexLayout {
    std::size_t columnsAt;  // in a description of an index's columns
    std::size_t flagsAt;
    std::size_t columnsSize;
    std::size_t numberAt;  // in an entry of the list of indexes
    std::size_t kindAt;
    std::size_t entrySize;
};

constexpr IndexLayout kJet3Indexes = {0, 38, 39, 4, 19, 20};
constexpr IndexLayout kIndexes = {4, 46, 52, 8, 23, 28};

constexpr std::size_t kMostIndexColumns = 10;
constexpr std::uint16_t kNoColumn = 0xFFFF;
constexpr unsigned kUnique = 1;
constexpr unsigned kPrimary = 1, kOfRelationship = 2;

// A definition goes on from page to page; each page starts with eight bytes of its own.
std::string DefinitionBytes(File& file, std::uint32_t number) {
    constexpr std::size_t kNextAt = 4, kSizeAt = 8, kPageHead = 8;
    constexpr std::size_t kMostPages = 256;
    std::string bytes;
    std::size_t wanted = 0;
    Page page;
    for (std::size_t pages = 0; pages == 0 || number != 0; ++pages) {
        const Bytes part = file.Read(number, page);
        if (part.Byte(0) != MDB_PAGE_TABLE || pages == kMostPages)
            ThrowDamaged("page " + std::to_string(number) + " holds no table definition");
        if (pages == 0)
            wanted = part.Long(kSizeAt) + kPageHead;
        bytes += part.From(pages == 0 ? 0 : kPageHead).Text();
        number = part.Long(kNextAt);
    }
    if (bytes.size() < wanted)
        ThrowDamaged("a table definition is cut off");
    return bytes;
}

// Walks over a definition part by part.
class Definition {
 public:
    Definition(File& file, Bytes bytes) : file_(file), layout_(file.Layout()), bytes_(bytes) {}

    Table Read();

 private:
    std::size_t CountAt(std::size_t at, std::size_t most) const;
    Bytes Take(std::size_t size) {
        at_ += size;
        return bytes_.Part(at_ - size, size);
    }
    std::string TakeName();
    Column ReadColumn(Bytes entry) const;
    void ReadColumns(Table& table);
    void ReadIndexes(Table& table);
    Index ReadIndexColumns(Bytes entry, const Table& table) const;

    File& file_;
    const MdbFormatConstants& layout_;
    Bytes bytes_;
    std::size_t at_ = 0;
};

std::size_t Definition::CountAt(std::size_t at, std::size_t most) const {
    // Numbers of indexes have four bytes.
    const std::size_t count = at == layout_.tab_num_cols_offset ? bytes_.Short(at) : bytes_.Long(at);
    if (count > most)
        ThrowDamaged("a table definition counts too much");
    return count;
}

std::string Definition::TakeName() {
    const std::size_t size = file_.IsJet3() ? Take(1).Byte(0) : Take(2).Short(0);
    return file_.Text(Take(size));
}

Table Definition::Read() {
    Table table;
    table.rowCount = bytes_.Long(layout_.tab_num_rows_offset);
    table.pageMap = {bytes_.Long(layout_.tab_usage_map_offset)};
    table.hasVariableColumns = bytes_.Short(layout_.tab_num_cols_offset - 2U) != 0;
    ReadColumns(table);
    ReadIndexes(table);
    std::ranges::stable_sort(table.indexes, {}, [](const Index& index) { return !index.primary; });
    return table;
}

Column Definition::ReadColumn(Bytes entry) const {
    constexpr unsigned kFixed = 1;
    Column column;
    column.kind = static_cast<Kind>(entry.Byte(0));
    column.length = entry.Short(layout_.col_size_offset);
    column.number = entry.Short(layout_.col_num_offset);
    column.place = entry.Short(layout_.tab_row_col_num_offset);
    column.fixed = (entry.Byte(layout_.col_flags_offset) & kFixed) != 0;
    column.fixedOffset = entry.Short(layout_.tab_col_offset_fixed);
    column.variablePlace = entry.Short(layout_.tab_col_offset_var);
    if (column.kind == Kind::Numeric) {
        // libmdb calls the two by each other's name.
        column.precision = entry.Byte(layout_.col_scale_offset);
        column.scale = entry.Byte(layout_.col_prec_offset);
    }
    return column;
}

void Definition::ReadColumns(Table& table) {
    const std::size_t count = CountAt(layout_.tab_num_cols_offset, kMostColumns);
    at_ = layout_.tab_cols_start_offset +
          CountAt(layout_.tab_num_ridxs_offset, kMostIndexes) * layout_.tab_ridx_entry_size;
    for (std::size_t i = 0; i < count; ++i)
        table.columns.push_back(ReadColumn(Take(layout_.tab_col_entry_size)));
    for (Column& column : table.columns)
        column.name = TakeName();
    std::ranges::sort(table.columns, {},
                      [](const Column& column) { return std::pair(column.place, column.number); });
}

Index Definition::ReadIndexColumns(Bytes entry, const Table& table) const {
    const IndexLayout& indexes = file_.IsJet3() ? kJet3Indexes : kIndexes;
    Index index;
    index.unique = (entry.Byte(indexes.flagsAt) & kUnique) != 0;
    for (std::size_t i = 0; i < kMostIndexColumns; ++i) {
        const std::uint16_t number = entry.Short(indexes.columnsAt + i * 3);
        if (number == kNoColumn)
            continue;
        const auto column = std::ranges::find(table.columns, number, &Column::number);
        if (column == table.columns.end())
            ThrowDamaged("an index is on a column that is missing");
        index.columns.push_back(static_cast<std::size_t>(column - table.columns.begin()));
    }
    return index;
}

// Several entries of the list may share one description: a primary key and the relationships on it.
void Definition::ReadIndexes(Table& table) {
    const IndexLayout& indexes = file_.IsJet3() ? kJet3Indexes : kIndexes;
    std::vector<Index> descriptions;
    const std::size_t described = CountAt(layout_.tab_num_ridxs_offset, kMostIndexes);
    for (std::size_t i = 0; i < described; ++i)
        descriptions.push_back(ReadIndexColumns(Take(indexes.columnsSize), table));
    const std::size_t count = CountAt(layout_.tab_num_idxs_offset, kMostIndexes);
    const Bytes entries = Take(count * indexes.entrySize);
    for (std::size_t i = 0; i < count; ++i) {
        const Bytes entry = entries.Part(i * indexes.entrySize, indexes.entrySize);
        std::string name = TakeName();
        const unsigned kind = entry.Byte(indexes.kindAt);
        if (kind == kOfRelationship)
            continue;
        const std::uint32_t number = entry.Long(indexes.numberAt);
        if (number >= descriptions.size())
            ThrowDamaged("the columns of an index are missing");
        table.indexes.push_back(descriptions[number]);
        table.indexes.back().name = std::move(name);
        table.indexes.back().primary = kind == kPrimary;
    }
}

// Appends the numbers of the pages whose bits are set, from `first` on.
void AppendPages(std::vector<std::uint32_t>& pages, Bytes bits, std::uint32_t first) {
    for (std::size_t at = 0; at < bits.Size(); ++at) {
        const unsigned byte = bits.Byte(at);
        for (unsigned bit = 0; byte >> bit != 0; ++bit)
            if ((byte >> bit & 1U) != 0)
                pages.push_back(first + static_cast<std::uint32_t>(at) * 8 + bit);
    }
}

// A long list stands on pages of its own, of which `places` has the numbers.
void AppendMappedPages(std::vector<std::uint32_t>& pages, File& file, Bytes places) {
    constexpr std::size_t kPageHead = 4, kPlaceSize = 4;
    const auto pagesInEach = static_cast<std::uint32_t>((file.Layout().pg_size - kPageHead) * 8);
    Page page;
    std::uint32_t first = 0;
    for (std::size_t at = 0; at + kPlaceSize <= places.Size(); at += kPlaceSize, first += pagesInEach)
        if (const std::uint32_t number = places.Long(at); number != 0) {
            AppendPages(pages, file.Read(number, page).From(kPageHead), first);
            if (pages.size() > file.PageCount())
                ThrowDamaged("a table has more pages than the file");
        }
}

}  // namespace

Table ReadTable(File& file, std::uint32_t page) {
    const std::string bytes = DefinitionBytes(file, page);
    Table table = Definition(file, Bytes(bytes)).Read();
    table.page = page;
    return table;
}

std::vector<std::uint32_t> ReadPageMap(File& file, RowPlace map) {
    constexpr unsigned kInPlace = 0, kOnPages = 1;
    Page page;
    const Bytes content = file.Read(map, page).content;
    std::vector<std::uint32_t> pages;
    if (content.Byte(0) == kInPlace)
        AppendPages(pages, content.From(5), content.Long(1));
    else if (content.Byte(0) == kOnPages)
        AppendMappedPages(pages, file, content.From(1));
    else
        ThrowDamaged("the list of a table's pages is of an unknown kind");
    if (!pages.empty() && pages.back() >= file.PageCount())
        ThrowDamaged("page " + std::to_string(pages.back()) + " is missing");
    return pages;
}

}  // namespace vellumark::access
