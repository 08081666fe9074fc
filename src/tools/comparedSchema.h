#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dao/recordset.h"

// The tables and columns of a Database schema as the version control run compares and copies them.
namespace vellumark {

enum class FieldKind { Text, Number, Flag };

// A field of [Column] that goes from the source to the target. `caption` names it in the log; what has none
// is copied without a word.
struct CopiedField {
    std::string_view name;
    FieldKind kind;
    std::string_view caption = {};
};

inline constexpr std::array kCopiedFields = {
    CopiedField{"COOLGen Attribute Name", FieldKind::Text, "Attribute Name"},
    CopiedField{"Flag Identifier", FieldKind::Flag, "Identifier Flag"},
    CopiedField{"Flag Optional", FieldKind::Flag, "Optional Flag"},
    CopiedField{"Role", FieldKind::Text, "Role"},
    CopiedField{"Vellumark Data Type", FieldKind::Text, "Data Type"},
    CopiedField{"Vellumark Numeric Precision", FieldKind::Number, "Numeric Precision"},
    CopiedField{"Vellumark Numeric Scale", FieldKind::Number, "Numeric Scale"},
    CopiedField{"Vellumark Size", FieldKind::Number, "Size"},
    CopiedField{"Name", FieldKind::Text},
    CopiedField{"Sort Order", FieldKind::Number},
    CopiedField{"ADO Data Type", FieldKind::Text},
    CopiedField{"ADO Character Maximum Length", FieldKind::Number},
    CopiedField{"ADO Numeric Precision", FieldKind::Number},
    CopiedField{"ADO Numeric Scale", FieldKind::Number},
    CopiedField{"Vellumark Character Maximum Length", FieldKind::Number},
};

struct ComparedColumn {
    int id = 0;
    int parentTableId = 0;
    int parentColumnId = 0;
    std::array<dao::Value, kCopiedFields.size()> fields;  // as kCopiedFields has them

    const dao::Value& Field(std::string_view name) const;
    std::string Name() const { return dao::ToText(Field("Name")); }
    std::string Role() const { return dao::ToText(Field("Role")); }
};

struct ComparedTable {
    int id = 0;
    std::string name;
    dao::Value owner;
    dao::Value entityName;
    std::vector<ComparedColumn> columns;  // by their Ids
};

// The tables by name.
std::vector<ComparedTable> ReadComparedTables(int schemaId);

// For each name of `names` the place of its counterpart in `others`, which is nobody else's counterpart. Case
// doesn't count, but a name spelled alike goes first.
std::vector<std::optional<std::size_t>> MatchNames(const std::vector<std::string>& names,
                                                   const std::vector<std::string>& others);

// Null is the same as nothing, zero or False.
bool SameField(FieldKind kind, const dao::Value& a, const dao::Value& b);
std::string FieldText(FieldKind kind, const dao::Value& value);

}  // namespace vellumark
