#include "access_file.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace vellumark::test {

// Sizes, and offsets of what is named.
struct AccessFile::Layout {
    std::size_t pageSize, rowCount;  // of a page with rows

    // Of a definition: its head, then an entry for a column, for an index's columns and for an index.
    std::size_t rows, variableColumns, columnCount, indexCount, map, columns, indexHeadSize;
    std::size_t columnSize, number, variablePlace, place, flags, fixedOffset, length;
    std::size_t describedSize, describedColumns, describedFlags;
    std::size_t indexSize, indexNumber, indexKind;
};

const AccessFile::Layout AccessFile::kJet3 = {2048, 8, 12, 23, 25, 27, 35, 43, 8,  18, 1,
                                              3,    5, 13, 14, 16, 39, 0,  38, 20, 4,  19};
const AccessFile::Layout AccessFile::kJet4 = {4096, 12, 16, 43, 45, 47, 55, 63, 12, 25, 5,
                                              7,    9,  15, 21, 23, 52, 4,  46, 28, 8,  23};

namespace {

constexpr unsigned kDeletedFlag = 0x8000, kMovedFlag = 0x4000;

void Put(std::string& bytes, std::size_t at, const std::string& content) {
    bytes.replace(at, content.size(), content);
}

std::string Short(std::size_t number) {
    return Stored(static_cast<std::uint16_t>(number));
}

std::string Four(std::size_t number) {
    return Stored(static_cast<std::uint32_t>(number));
}

void Encode(std::string& bytes, std::size_t at, std::size_t size, std::uint32_t key) {
    std::array<unsigned char, 256> box;
    for (unsigned i = 0; i < 256; ++i)
        box[i] = static_cast<unsigned char>(i);
    unsigned char j = 0;
    for (unsigned i = 0; i < 256; ++i) {
        j = static_cast<unsigned char>(j + box[i] + (key >> (i % 4 * 8)));
        std::swap(box[i], box[j]);
    }
    unsigned char a = 0, b = 0;
    for (std::size_t i = at; i < at + size; ++i) {
        ++a;
        b = static_cast<unsigned char>(b + box[a]);
        std::swap(box[a], box[b]);
        bytes[i] = static_cast<char>(bytes[i] ^ box[static_cast<unsigned char>(box[a] + box[b])]);
    }
}

bool IsVariable(int type) {
    return type == 9 || type == 10 || type == 11 || type == 12;
}

int FixedSize(const AccessColumn& column) {
    constexpr std::array<int, 20> sizes = {0, 0, 1, 2, 4, 8, 4, 8, 8, 0, 0, 0, 0, 0, 0, 16, 17, 0, 4, 8};
    return sizes.at(static_cast<std::size_t>(column.type));
}

}  // namespace

AccessFile::AccessFile(AccessVersion version, std::string_view password, std::uint32_t key)
    : version_(version), layout_(version == AccessVersion::Access97 ? kJet3 : kJet4), key_(key) {
    NewPage(0);
    WriteHeader(password);
    NewPage(1);
    AddTable({"MSysObjects",
              {{"Id", 4}, {"Name", 10, 510}, {"Type", 3}, {"Flags", 4}, {"LvProp", 11}},
              {},
              {},
              false,
              0x80000000U});
}

void AccessFile::WriteHeader(std::string_view password) {
    std::string& page = pages_.front();
    Put(page, 0, std::string("\0\1\0\0", 4));
    Put(page, 4, version_ == AccessVersion::Access2007 ? "Standard ACE DB" : "Standard Jet DB");
    page[0x14] = static_cast<char>(version_);
    Put(page, 0x3C, Short(1252));
    Put(page, 0x3E, Four(key_));
    const double created = 38834.6;
    Put(page, 0x72, IsJet3() ? std::string() : Stored(created));
    std::string stored = Text(password);
    stored.resize(IsJet3() ? 20 : 40);
    const std::string mask = Four(static_cast<std::uint32_t>(created));
    for (std::size_t i = 0; i < stored.size() && !IsJet3(); ++i)
        stored[i] = static_cast<char>(stored[i] ^ mask[i % 4]);
    Put(page, 0x42, stored);
    Encode(page, 0x18, IsJet3() ? 126 : 128, 0x6B39DAC7U);
}

std::string AccessFile::Text(std::string_view ascii) const {
    std::string text;
    for (const char c : ascii)
        text.append(1, c).append(IsJet3() ? 0 : 1, '\0');
    return text;
}

std::uint32_t AccessFile::NewPage(unsigned char kind) {
    pages_.emplace_back(layout_.pageSize, '\0');
    pages_.back()[0] = static_cast<char>(kind);
    pages_.back()[1] = 1;
    return static_cast<std::uint32_t>(pages_.size() - 1);
}

std::uint32_t AccessFile::NewRowPage(std::uint32_t owner) {
    const std::uint32_t page = NewPage(1);
    Put(pages_[page], 4, Four(owner));
    return page;
}

// Rows are laid down from the end of the page, and listed at its start.
bool AccessFile::Fits(std::uint32_t page, std::size_t size) const {
    std::uint16_t rows = 0, last = static_cast<std::uint16_t>(layout_.pageSize);
    std::memcpy(&rows, pages_[page].data() + layout_.rowCount, 2);
    const std::size_t end = layout_.rowCount + 2 + rows * 2U;
    if (rows > 0)
        std::memcpy(&last, pages_[page].data() + end - 2, 2);
    return rows < 255 && end + 2 + size <= (last & 0x1FFFU);
}

std::uint32_t AccessFile::PutRow(std::uint32_t number, const std::string& row, unsigned flags) {
    std::string& page = pages_[number];
    std::uint16_t rows = 0, last = static_cast<std::uint16_t>(layout_.pageSize);
    std::memcpy(&rows, page.data() + layout_.rowCount, 2);
    const std::size_t entry = layout_.rowCount + 2 + rows * 2U;
    if (rows > 0)
        std::memcpy(&last, page.data() + entry - 2, 2);
    const std::size_t start = (last & 0x1FFFU) - row.size();
    Put(page, start, row);
    Put(page, entry, Short(start | flags));
    Put(page, layout_.rowCount, Short(rows + 1U));
    return number << 8 | rows;
}

void AccessFile::AddTable(AccessTable table) {
    OpenTable made;
    made.table = std::move(table);
    made.definitionPage = NewPage(2);
    made.mapPage = NewRowPage(0);
    tables_.push_back(std::move(made));
}

void AccessFile::AddRow(const std::vector<AccessField>& fields, Row kind) {
    OpenTable& table = tables_.back();
    std::string row = RowBytes(table.table.columns, fields);
    unsigned flags = kind == Row::Deleted ? kDeletedFlag | kMovedFlag : 0;
    if (kind == Row::Moved) {
        table.dataPages.push_back(NewRowPage(table.definitionPage));
        row = Four(PutRow(table.dataPages.back(), row, kDeletedFlag));
        flags = kMovedFlag;
    }
    if (table.dataPages.empty() || !Fits(table.dataPages.back(), row.size()))
        table.dataPages.push_back(NewRowPage(table.definitionPage));
    PutRow(table.dataPages.back(), row, flags);
    table.rowCount += kind == Row::Deleted ? 0 : 1;
}

std::string AccessFile::RowBytes(const std::vector<AccessColumn>& columns,
                                 const std::vector<AccessField>& fields) const {
    std::string row = IsJet3() ? std::string(1, static_cast<char>(fields.size())) : Short(fields.size());
    std::string mask((fields.size() + 7) / 8, '\0');
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i])
            mask[i / 8] = static_cast<char>(mask[i / 8] | 1 << i % 8);
        if (!IsVariable(columns[i].type))
            row += fields[i].value_or(std::string(static_cast<std::size_t>(FixedSize(columns[i])), '\0'));
    }
    std::vector<std::size_t> ends;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (IsVariable(columns[i].type)) {
            ends.push_back(row.size());
            row += fields[i].value_or("");
        }
    ends.push_back(row.size());
    if (std::ranges::any_of(columns, [](const AccessColumn& column) { return IsVariable(column.type); }))
        AppendOffsets(row, ends, mask.size());
    return row + mask;
}

// Offsets backwards, and the number of fields. In one byte each they count anew at each 256, so the fields
// where that happens are listed too.
void AccessFile::AppendOffsets(std::string& row, const std::vector<std::size_t>& ends,
                               std::size_t maskSize) const {
    for (auto end = ends.rbegin(); end != ends.rend(); ++end)
        row += IsJet3() ? std::string(1, static_cast<char>(*end)) : Short(*end);
    if (!IsJet3()) {
        row += Short(ends.size() - 1);
        return;
    }
    std::size_t jumps = 0;
    while ((row.size() + jumps + 1 + maskSize - 1) / 256 > jumps)
        ++jumps;
    for (; jumps > 0; --jumps) {
        const auto first = std::ranges::find_if(ends, [&](std::size_t end) { return end >= jumps * 256; });
        row += static_cast<char>(first == ends.end() ? 0xFF : first - ends.begin());
    }
    row += static_cast<char>(ends.size() - 1);
}

std::string AccessFile::Long(const std::string& content, LongValue kind) {
    if (kind == LongValue::InRow)
        return Four(content.size() | 0x80000000U) + std::string(8, '\0') + content;
    if (kind == LongValue::OneRow) {
        const std::uint32_t place = PutRow(NewRowPage(0x4C41564CU), content);
        return Four(content.size() | 0x40000000U) + Four(place) + std::string(4, '\0');
    }
    const std::size_t piece = layout_.pageSize / 2;
    std::uint32_t next = 0;
    for (std::size_t at = (content.size() - 1) / piece * piece;; at -= piece) {
        next = PutRow(NewRowPage(0x4C41564CU), Four(next) + content.substr(at, piece));
        if (at == 0)
            return Four(content.size()) + Four(next) + std::string(4, '\0');
    }
}

std::string AccessFile::Name(std::string_view ascii) const {
    const std::string text = Text(ascii);
    return (IsJet3() ? std::string(1, static_cast<char>(text.size())) : Short(text.size())) + text;
}

std::string AccessFile::ColumnEntry(const AccessColumn& column, int number, int fixedOffset,
                                    int variablePlace, int place) const {
    std::string entry(layout_.columnSize, '\0');
    entry[0] = static_cast<char>(column.type);
    Put(entry, layout_.number, Short(static_cast<std::size_t>(number)));
    Put(entry, layout_.variablePlace, Short(static_cast<std::size_t>(variablePlace)));
    Put(entry, layout_.place, Short(static_cast<std::size_t>(place)));
    if (column.type == 16) {
        entry[11] = static_cast<char>(column.precision);
        entry[12] = static_cast<char>(column.scale);
    }
    entry[layout_.flags] = static_cast<char>(IsVariable(column.type) ? 2 : 3);
    Put(entry, layout_.fixedOffset, Short(static_cast<std::size_t>(fixedOffset)));
    const int length = IsVariable(column.type) ? column.length : FixedSize(column);
    Put(entry, layout_.length, Short(static_cast<std::size_t>(length)));
    return entry;
}

std::string AccessFile::IndexPart(const AccessTable& table) const {
    std::string part;
    for (const AccessIndexColumns& described : table.descriptions) {
        std::string entry(layout_.describedSize, '\0');
        for (std::size_t i = 0; i < 10; ++i) {
            const bool used = i < described.columns.size();
            Put(entry, layout_.describedColumns + i * 3,
                Short(used ? static_cast<std::size_t>(described.columns[i]) : 0xFFFF) + "\1");
        }
        entry[layout_.describedFlags] = static_cast<char>(described.unique ? 1 : 0);
        part += entry;
    }
    for (std::size_t i = 0; i < table.indexes.size(); ++i) {
        std::string entry(layout_.indexSize, '\0');
        Put(entry, layout_.indexNumber - 4, Four(i));
        Put(entry, layout_.indexNumber, Four(static_cast<std::size_t>(table.indexes[i].description)));
        entry[layout_.indexKind] = static_cast<char>(table.indexes[i].kind);
        part += entry;
    }
    for (const AccessIndex& index : table.indexes)
        part += Name(index.name);
    return part;
}

// Columns stand in the order of their names, to tell that apart from the order that people see.
std::string AccessFile::Definition(const OpenTable& open) const {
    const AccessTable& table = open.table;
    struct Entry {
        std::string name, bytes;
    };
    std::vector<Entry> entries;
    int fixedOffset = 0, variablePlace = 0, number = 0;
    for (const AccessColumn& column : table.columns) {
        if (!column.name.empty())
            entries.push_back({column.name, ColumnEntry(column, number, fixedOffset, variablePlace, number)});
        (IsVariable(column.type) ? variablePlace : fixedOffset) +=
            IsVariable(column.type) ? 1 : FixedSize(column);
        ++number;
    }
    std::ranges::sort(entries, {}, &Entry::name);
    std::string bytes(layout_.columns + table.descriptions.size() * layout_.indexHeadSize, '\0');
    Put(bytes, layout_.rows, Four(open.rowCount));
    Put(bytes, layout_.variableColumns, Short(static_cast<std::size_t>(variablePlace)));
    Put(bytes, layout_.columnCount, Short(entries.size()));
    Put(bytes, layout_.indexCount, Four(table.indexes.size()) + Four(table.descriptions.size()));
    Put(bytes, layout_.map, Four(open.mapPage << 8) + Four(open.mapPage << 8 | 1));
    for (const Entry& entry : entries)
        bytes += entry.bytes;
    for (const Entry& entry : entries)
        bytes += Name(entry.name);
    return bytes + IndexPart(table) + "\xFF\xFF";
}

void AccessFile::WriteDefinition(const OpenTable& table) {
    std::string bytes = Definition(table);
    Put(bytes, 0, "\2\1");
    Put(bytes, 8, Four(bytes.size() - 8));
    std::uint32_t page = table.definitionPage;
    Put(pages_[page], 0, bytes.substr(0, layout_.pageSize));
    for (std::size_t at = layout_.pageSize; at < bytes.size(); at += layout_.pageSize - 8) {
        const std::uint32_t next = NewPage(2);
        Put(pages_[page], 4, Four(next));
        Put(pages_[next], 8, bytes.substr(at, layout_.pageSize - 8));
        page = next;
    }
}

void AccessFile::WriteMap(const OpenTable& table) {
    const std::size_t bitsOnPage = (layout_.pageSize - 4) * 8;
    const bool onPages = table.table.mapOnPages || pages_.size() > 500;
    std::string map(onPages ? 1 + 4 * (pages_.size() / bitsOnPage + 1) : 69, '\0');
    map[0] = onPages ? 1 : 0;
    for (std::uint32_t page : table.dataPages) {
        std::string* bits = &map;
        std::size_t at = 5 + page / 8;
        if (onPages) {
            std::uint32_t number = 0;
            std::memcpy(&number, map.data() + 1 + page / bitsOnPage * 4, 4);
            if (number == 0)
                Put(map, 1 + page / bitsOnPage * 4, Four(number = NewPage(5)));
            bits = &pages_[number];
            at = 4 + page % bitsOnPage / 8;
        }
        (*bits)[at] = static_cast<char>((*bits)[at] | 1 << page % 8);
    }
    PutRow(table.mapPage, map);
    PutRow(table.mapPage, std::string(69, '\0'));
}

std::string AccessFile::Properties(const AccessTable& table) const {
    const auto name = [&](std::string_view ascii) { return Short(Text(ascii).size()) + Text(ascii); };
    const auto chunk = [](int kind, const std::string& content) {
        return Four(content.size() + 6) + Short(static_cast<std::size_t>(kind)) + content;
    };
    const auto flag = [](int property, bool set) {
        const std::string value =
            Short(static_cast<std::size_t>(property)) + Short(1) + (set ? "\xFF" : std::string(1, '\0'));
        return Short(value.size() + 4) + "\1\1" + value;
    };
    std::string bytes(IsJet3() ? "KKD" : "MR2", 4);
    bytes += chunk(0x80, name("Required") + name("AllowZeroLength"));
    for (const AccessColumn& column : table.columns)
        bytes += chunk(1, Four(name(column.name).size() + 4) + name(column.name) + flag(0, column.required) +
                              flag(1, column.allowZeroLength));
    return bytes;
}

void AccessFile::AddObjects() {
    const std::vector<OpenTable> tables = tables_;
    std::vector<std::vector<AccessField>> rows;
    for (const OpenTable& open : tables) {
        AccessField properties;
        if (open.table.flags == 0)
            properties = Long(Properties(open.table), LongValue::Chain);
        rows.push_back(
            {Four(open.definitionPage), Text(open.table.name), Short(1), Four(open.table.flags), properties});
    }
    std::rotate(tables_.begin(), tables_.begin() + 1, tables_.end());
    for (const std::vector<AccessField>& row : rows)
        AddRow(row);
}

void AccessFile::AddRelationRows() {
    AddTable({"MSysRelationships",
              {{"szRelationship", 10, 510},
               {"grbit", 4},
               {"ccolumn", 4},
               {"icolumn", 4},
               {"szObject", 10, 510},
               {"szColumn", 10, 510},
               {"szReferencedObject", 10, 510},
               {"szReferencedColumn", 10, 510}},
              {},
              {},
              false,
              0x80000000U});
    for (const AccessRelation& relation : relations_)
        for (std::size_t i = relation.columns.size(); i-- > 0;)
            AddRow({Text(relation.name), Four(0), Four(relation.columns.size()), Four(i),
                    Text(relation.child), Text(relation.columns[i].second), Text(relation.parent),
                    Text(relation.columns[i].first)});
}

std::string AccessFile::Save(const std::string& path) {
    AddRelationRows();
    AddObjects();
    for (const OpenTable& table : tables_) {
        WriteDefinition(table);
        WriteMap(table);
    }
    std::ofstream file(path, std::ios::binary);
    for (std::uint32_t number = 0; number < pages_.size(); ++number) {
        if (key_ != 0 && number > 0)
            Encode(pages_[number], 0, layout_.pageSize, key_ ^ number);
        file << pages_[number];
    }
    return path;
}

}  // namespace vellumark::test
