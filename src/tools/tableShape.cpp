#include "tools/tableShape.h"

#include <algorithm>
#include <array>

#include "platform/error.h"
#include "platform/text.h"

namespace vellumark {

namespace {

using platform::EqualsIgnoringCase;

bool Is(const dao::RowAccess& access, std::string_view word) {
    return platform::ContainsIgnoringCase(access.System(), word);
}

template <std::size_t count>
bool IsOneOf(int type, const std::array<int, count>& types) {
    return std::ranges::find(types, type) != types.end();
}

const ShownColumn* FindColumn(const std::vector<ShownColumn>& columns, std::string_view name) {
    const auto found = std::ranges::find_if(
        columns, [&](const ShownColumn& column) { return EqualsIgnoringCase(column.name, name); });
    return found == columns.end() ? nullptr : &*found;
}

// In the order in which "*" gives them; one that the catalog leaves out is computed by the database.
std::vector<ShownColumn> ReadColumns(const dao::RowAccess& access, const std::string& reference,
                                     const dao::TableDef& definition) {
    std::vector<ShownColumn> columns;
    const auto rows = access.Query("select * from " + reference + " where 1 = 0");
    for (const std::string& name : rows->FieldNames()) {
        const auto field = std::ranges::find_if(
            definition.fields, [&](const dao::Field& each) { return EqualsIgnoringCase(each.name, name); });
        if (field == definition.fields.end())
            columns.push_back({name, {}, false, false});
        else
            columns.push_back({name, field->type, true, field->required});
    }
    return columns;
}

// The places of an index's columns; empty when one of them can be Null, since Nulls are never unique.
std::vector<std::size_t> KeyPlaces(const std::vector<ShownColumn>& columns, const dao::Index& index) {
    std::vector<std::size_t> places;
    for (const std::string& name : index.fields) {
        const ShownColumn* column = FindColumn(columns, name);
        if (column == nullptr || !(column->required || index.primary))
            return {};
        places.push_back(static_cast<std::size_t>(column - columns.data()));
    }
    return places;
}

// The primary key, else a unique one.
std::vector<std::size_t> ChooseKey(const std::vector<ShownColumn>& columns,
                                   const std::vector<dao::Index>& indexes) {
    for (const bool primary : {true, false})
        for (const dao::Index& index : indexes)
            if (index.primary == primary && (index.primary || index.unique))
                if (std::vector<std::size_t> key = KeyPlaces(columns, index); !key.empty())
                    return key;
    return {};
}

// What the system calls a row by, unless the table has columns of that name or nothing of the kind.
std::vector<std::string> RowIdOf(const dao::RowAccess& access, const TableShape& shape,
                                 const RowDialect& dialect) {
    std::string list;
    for (const std::string_view part : dialect.rowId) {
        if (FindColumn(shape.columns, part) != nullptr)
            return {};
        list.append(list.empty() ? "" : ", ").append(part);
    }
    if (list.empty())
        return {};
    try {
        access.CheckWritable();
        access.Query("select " + list + " from " + shape.reference + " where 1 = 0");
    } catch (const platform::Error&) {
        return {};
    }
    return {dialect.rowId.begin(), dialect.rowId.end()};
}

std::vector<std::size_t> Sequence(std::size_t first, std::size_t count) {
    std::vector<std::size_t> places(count);
    for (std::size_t i = 0; i < count; ++i)
        places[i] = first + i;
    return places;
}

void ChooseIdentity(const dao::RowAccess& access, TableShape& shape, const dao::TableDef& definition) {
    const RowDialect dialect = DialectOf(access);
    std::vector<std::size_t> key = ChooseKey(shape.columns, definition.indexes);
    if (key.empty() || dialect.prefersRowId)
        shape.hidden = RowIdOf(access, shape, dialect);
    for (std::size_t& place : key)
        place += shape.hidden.size();
    const std::vector<std::size_t> rowId = Sequence(0, shape.hidden.size());
    shape.order = key;
    if (key.empty() && !rowId.empty())
        shape.order = Sequence(0, dialect.sortedRowId);
    shape.identity = rowId.empty() ? key : rowId;
    shape.unique = !shape.identity.empty();
    if (!shape.unique)
        shape.identity = Sequence(shape.hidden.size(), shape.columns.size());
}

// At a character's start.
std::size_t CutPlace(std::string_view text, bool isText) {
    std::size_t place = kLongestHeld;
    while (isText && place > 0 && (static_cast<unsigned char>(text[place]) & 0xC0U) == 0x80U)
        --place;
    return place;
}

HeldField Held(HeldField::Kind kind, std::string_view text) {
    if (text.size() <= kLongestHeld)
        return {kind, false, std::string(text)};
    return {kind, true, std::string(text.substr(0, CutPlace(text, kind == HeldField::Kind::Text)))};
}

}  // namespace

HeldField NullField() {
    return {};
}

HeldField TextField(std::string text) {
    return {HeldField::Kind::Text, false, std::move(text)};
}

HeldField BytesField(std::string bytes) {
    return {HeldField::Kind::Bytes, false, std::move(bytes)};
}

HeldRow ReadHeldRow(const platform::Cursor& rows) {
    HeldRow row;
    row.reserve(rows.FieldNames().size());
    for (std::size_t column = 0; column < rows.FieldNames().size(); ++column) {
        // Asked for before the text, which may turn bytes into one.
        const auto kind = rows.IsBinary(column) ? HeldField::Kind::Bytes : HeldField::Kind::Text;
        row.push_back(rows.IsNull(column) ? NullField() : Held(kind, rows.Text(column)));
    }
    return row;
}

dao::Value ToValue(const HeldField& field) {
    switch (field.kind) {
        case HeldField::Kind::Text:
            return field.text;
        case HeldField::Kind::Bytes:
            return dao::Blob{field.text};
        case HeldField::Kind::Null:
            break;
    }
    return {};
}

RowDialect DialectOf(const dao::RowAccess& access) {
    RowDialect dialect;
    dialect.emptyInsert = "default values";
    if (Is(access, "SQLite")) {
        dialect.embedded = access.Streams();
        dialect.pages = !access.Streams();
        dialect.returns = dialect.returnsUpdated = access.Streams();
        dialect.rowId = {"_rowid_"};
        dialect.newRow = "_rowid_ = last_insert_rowid()";
        dialect.prefersRowId = access.Streams();
    } else if (Is(access, "PostgreSQL")) {
        dialect.pages = dialect.seeks = dialect.comparesRows = true;
        dialect.returns = dialect.returnsUpdated = true;
        // A place is used again, so that it tells a row only with the change that put it there; each
        // partition has places of its own.
        dialect.rowId = {"tableoid", "ctid", "xmin"};
        dialect.sortedRowId = 2;
    } else if (Is(access, "MariaDB") || Is(access, "MySQL")) {
        dialect.pages = dialect.seeks = dialect.returns = true;
        dialect.one = " limit 1";
        dialect.emptyInsert = "() values ()";
        dialect.exactText = "binary ";
    }
    return dialect;
}

bool ShownColumn::IsBinary() const {
    return IsOneOf(type.adoType, std::array{128, 204, 205});
}

bool ShownColumn::IsText() const {
    return IsOneOf(type.adoType, std::array{129, 130, 200, 201, 202, 203});
}

bool ShownColumn::IsNumber() const {
    return IsOneOf(type.adoType, std::array{2, 3, 4, 5, 6, 16, 17, 18, 19, 20, 21, 131});
}

TableShape ReadTableShape(const dao::RowAccess& access, std::string_view owner, std::string_view table) {
    const dao::TableDef definition = access.Definition(owner, table);
    TableShape shape;
    shape.name = owner.empty() ? std::string(table) : std::string(owner).append(".").append(table);
    shape.reference = (owner.empty() ? "" : access.Quoted(owner) + ".") + access.Quoted(definition.name);
    shape.columns = ReadColumns(access, shape.reference, definition);
    ChooseIdentity(access, shape, definition);
    return shape;
}

std::string FieldExpression(const dao::RowAccess& access, const TableShape& shape, std::size_t field) {
    return field < shape.hidden.size() ? shape.hidden[field] : access.Quoted(shape.ColumnOf(field).name);
}

std::string SelectList(const dao::RowAccess& access, const TableShape& shape) {
    std::string list;
    for (std::size_t field = 0; field < shape.FieldCount(); ++field)
        list.append(list.empty() ? "" : ", ").append(FieldExpression(access, shape, field));
    return list;
}

}  // namespace vellumark
