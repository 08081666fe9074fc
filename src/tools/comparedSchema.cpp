#include "tools/comparedSchema.h"

#include <algorithm>
#include <map>

#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

ComparedColumn ReadColumn(const dao::Recordset& row) {
    ComparedColumn column;
    column.id = row.Long("Id");
    column.parentTableId = row.Long("FK COL TAB Id");
    column.parentColumnId = row.Long("FK COL Id");
    for (std::size_t i = 0; i < kCopiedFields.size(); ++i)
        column.fields[i] = row.Get(kCopiedFields[i].name);
    return column;
}

// Counterparts that are still to be had.
class Counterparts {
 public:
    explicit Counterparts(const std::vector<std::string>& names) : names_(names), taken_(names.size()) {}

    // Gives each name without a match the free one whose key is the same.
    template <class Key>
    void MatchBy(const Key& key, const std::vector<std::string>& names,
                 std::vector<std::optional<std::size_t>>& matches) {
        std::map<std::string, std::size_t> places;
        for (std::size_t i = 0; i < names_.size(); ++i)
            if (!taken_[i])
                places.emplace(key(names_[i]), i);
        for (std::size_t i = 0; i < names.size(); ++i) {
            const auto place = places.find(key(names[i]));
            if (matches[i] || place == places.end() || taken_[place->second])
                continue;
            matches[i] = place->second;
            taken_[place->second] = true;
        }
    }

 private:
    const std::vector<std::string>& names_;
    std::vector<bool> taken_;
};

}  // namespace

const dao::Value& ComparedColumn::Field(std::string_view name) const {
    const auto field = std::ranges::find(kCopiedFields, name, &CopiedField::name);
    return fields.at(static_cast<std::size_t>(field - kCopiedFields.begin()));
}

std::vector<ComparedTable> ReadComparedTables(int schemaId) {
    std::vector<ComparedTable> tables;
    std::map<int, std::size_t> places;
    dao::Recordset rows = RepositoryDatabase.OpenRecordset(
        "select * from [Table] where [FK DBS Id] = ? order by [Name] asc", {schemaId});
    for (; !rows.IsEOF(); rows.MoveNext()) {
        places.emplace(rows.Long("Id"), tables.size());
        tables.push_back(
            {rows.Long("Id"), rows.Text("Name"), rows.Get("Owner"), rows.Get("COOLGen Entity Name"), {}});
    }
    dao::Recordset columns = RepositoryDatabase.OpenRecordset(
        "select * from [Column] where [FK DBS Id] = ? order by [FK TAB Id] asc, [Id] asc", {schemaId});
    for (; !columns.IsEOF(); columns.MoveNext()) {
        const auto table = places.find(columns.Long("FK TAB Id"));
        if (table != places.end())
            tables[table->second].columns.push_back(ReadColumn(columns));
    }
    return tables;
}

std::vector<std::optional<std::size_t>> MatchNames(const std::vector<std::string>& names,
                                                   const std::vector<std::string>& others) {
    std::vector<std::optional<std::size_t>> matches(names.size());
    Counterparts counterparts(others);
    counterparts.MatchBy([](const std::string& name) { return name; }, names, matches);
    counterparts.MatchBy([](const std::string& name) { return platform::ToLower(name); }, names, matches);
    return matches;
}

bool SameField(FieldKind kind, const dao::Value& a, const dao::Value& b) {
    switch (kind) {
        case FieldKind::Number:
            return dao::ToLong(a) == dao::ToLong(b);
        case FieldKind::Flag:
            return dao::ToBoolean(a) == dao::ToBoolean(b);
        case FieldKind::Text:
            break;
    }
    return dao::ToText(a) == dao::ToText(b);
}

std::string FieldText(FieldKind kind, const dao::Value& value) {
    if (kind == FieldKind::Flag)
        return dao::ToBoolean(value) ? "True" : "False";
    return dao::ToText(value);
}

}  // namespace vellumark
