#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::test {

enum class AccessVersion : unsigned char { Access97 = 0, Access2000 = 1, Access2007 = 2 };

struct AccessColumn {
    std::string name;  // empty for one that was deleted: rows still have its field
    int type = 4;      // as the file numbers them
    int length = 0;    // bytes
    bool required = false;
    bool allowZeroLength = true;
    int precision = 0;
    int scale = 0;
};

struct AccessIndexColumns {
    std::vector<int> columns;  // from 0, deleted ones counted
    bool unique = false;
};

struct AccessIndex {
    std::string name;
    int kind = 0;         // 1 the primary key, 2 of a relationship
    int description = 0;  // place of its columns among the table's descriptions
};

struct AccessTable {
    std::string name;
    std::vector<AccessColumn> columns = {};
    std::vector<AccessIndexColumns> descriptions = {};
    std::vector<AccessIndex> indexes = {};
    bool mapOnPages = false;  // the list of its pages stands on pages of its own, as in a large file
    std::uint32_t flags = 0;
};

struct AccessRelation {
    std::string name, parent, child;
    std::vector<std::pair<std::string, std::string>> columns;  // the parent's, the child's
};

// A field as the file stores it; nothing for Null. A Boolean that is True holds empty text.
using AccessField = std::optional<std::string>;

template <typename Number>
std::string Stored(Number number) {
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

// Writes files as Microsoft Access lays them out, as far as a reader looks at them: there are no pages of
// indexes.
class AccessFile {
 public:
    enum class Row { Plain, Deleted, Moved };
    enum class LongValue { InRow, OneRow, Chain };

    // Pages are encoded by a key other than 0.
    explicit AccessFile(AccessVersion version, std::string_view password = "", std::uint32_t key = 0);

    // Rows go to the table that came last. One with fewer fields was written before columns were added.
    void AddTable(AccessTable table);
    void AddRow(const std::vector<AccessField>& fields, Row kind = Row::Plain);
    void AddRelation(const AccessRelation& relation) { relations_.push_back(relation); }

    // Text of this version from ASCII.
    std::string Text(std::string_view ascii) const;
    // The field of a memo or an object with that content.
    std::string Long(const std::string& content, LongValue kind);

    // Returns the path.
    std::string Save(const std::string& path);

 private:
    struct Layout;
    static const Layout kJet3, kJet4;

    struct OpenTable {
        AccessTable table;
        std::uint32_t definitionPage = 0;
        std::uint32_t mapPage = 0;
        std::uint32_t rowCount = 0;
        std::vector<std::uint32_t> dataPages;
    };

    bool IsJet3() const { return version_ == AccessVersion::Access97; }
    std::uint32_t NewPage(unsigned char kind);
    std::uint32_t NewRowPage(std::uint32_t owner);
    bool Fits(std::uint32_t page, std::size_t size) const;
    std::uint32_t PutRow(std::uint32_t page, const std::string& row, unsigned flags = 0);
    std::string RowBytes(const std::vector<AccessColumn>& columns,
                         const std::vector<AccessField>& fields) const;
    void AppendOffsets(std::string& row, const std::vector<std::size_t>& ends, std::size_t maskSize) const;
    std::string Definition(const OpenTable& table) const;
    std::string ColumnEntry(const AccessColumn& column, int number, int fixedOffset, int variablePlace,
                            int place) const;
    std::string IndexPart(const AccessTable& table) const;
    std::string Name(std::string_view ascii) const;
    void WriteDefinition(const OpenTable& table);
    void WriteMap(const OpenTable& table);
    std::string Properties(const AccessTable& table) const;
    void AddObjects();
    void AddRelationRows();
    void WriteHeader(std::string_view password);

    AccessVersion version_;
    const Layout& layout_;
    std::uint32_t key_;
    std::vector<std::string> pages_;
    std::vector<OpenTable> tables_;
    std::vector<AccessRelation> relations_;
};

}  // namespace vellumark::test
