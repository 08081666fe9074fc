#include "tools/tableEditor.h"

#include "platform/error.h"
#include "platform/text.h"

namespace vellumark {

namespace {

constexpr int kSingle = 4;

using platform::Error;

[[noreturn]] void ThrowGone() {
    throw Error(platform::kRowIsGone,
                "The row is no longer in the table: it has been deleted, or its key has been changed.");
}

[[noreturn]] void ThrowNotAlone(const TableShape& shape) {
    throw Error(platform::kRowNotAlone, "The table " + shape.name +
                                            " has no key, and other rows have the same values: this one "
                                            "can't be changed or deleted alone.");
}

}  // namespace

TableEditor::TableEditor(const dao::RowAccess& access, TableShape shape)
    : access_(access), shape_(std::move(shape)), dialect_(DialectOf(access)) {}

HeldRow TableEditor::Insert(const ColumnChanges& values) const {
    access_.CheckWritable();
    std::string names, marks;
    std::vector<dao::Value> bound;
    HeldRow row(shape_.FieldCount());
    for (std::size_t column = 0; column < values.size(); ++column) {
        if (!values[column])
            continue;
        names.append(names.empty() ? "" : ", ").append(access_.Quoted(shape_.columns[column].name));
        marks.append(marks.empty() ? "?" : ", ?");
        bound.push_back(ToValue(*values[column]));
        row[shape_.hidden.size() + column] = *values[column];
    }
    const std::string list =
        names.empty() ? std::string(dialect_.emptyInsert) : "(" + names + ") values (" + marks + ")";
    const std::string sql = "insert into " + shape_.reference + " " + list;
    std::optional<HeldRow> inserted = Run(sql, bound, dialect_.returns);
    if (!inserted)
        inserted = FindNew();
    return AsStored(inserted ? std::move(*inserted) : std::move(row));
}

HeldRow TableEditor::Update(const HeldRow& row, const ColumnChanges& changes) const {
    access_.CheckWritable();
    std::string assignments;
    std::vector<dao::Value> bound;
    HeldRow changed = row;
    for (std::size_t column = 0; column < changes.size(); ++column) {
        if (!changes[column])
            continue;
        assignments.append(assignments.empty() ? "" : ", ")
            .append(access_.Quoted(shape_.columns[column].name))
            .append(" = ?");
        bound.push_back(ToValue(*changes[column]));
        changed[shape_.hidden.size() + column] = *changes[column];
    }
    const Condition condition = CheckedCondition(row);
    if (bound.empty())
        return row;
    bound.insert(bound.end(), condition.values.begin(), condition.values.end());
    std::string sql = "update " + shape_.reference + " set " + assignments + " where " + condition.text;
    if (!shape_.unique)
        sql += dialect_.one;
    return AsStored(Run(sql, bound, dialect_.returnsUpdated).value_or(std::move(changed)));
}

void TableEditor::Delete(const HeldRow& row) const {
    access_.CheckWritable();
    const Condition condition = CheckedCondition(row);
    std::string sql = "delete from " + shape_.reference + " where " + condition.text;
    if (!shape_.unique)
        sql += dialect_.one;
    access_.Query(sql, condition.values);
}

std::optional<HeldRow> TableEditor::Reread(const HeldRow& row) const {
    const std::vector<HeldRow> found = Find(ConditionFor(row));
    return found.empty() ? std::nullopt : std::optional(found.front());
}

// What a trigger makes of a row after it has been written stands in the table only.
HeldRow TableEditor::AsStored(HeldRow row) const {
    const std::optional<HeldRow> stored = Reread(row);
    return stored ? *stored : row;
}

TableEditor::Condition TableEditor::ConditionFor(const HeldRow& row) const {
    Condition condition;
    for (const std::size_t field : shape_.identity)
        AddTest(condition, field, row[field]);
    if (condition.text.empty())
        throw Error(platform::kRowNotAlone,
                    "The table " + shape_.name + " has no columns that a row could be told by.");
    return condition;
}

// Without a key all columns count, but for those that can't be compared.
void TableEditor::AddTest(Condition& condition, std::size_t field, const HeldField& value) const {
    if (value.cut || (!shape_.unique && shape_.ColumnOf(field).type.adoType == kSingle)) {
        condition.complete = false;
        return;
    }
    condition.text.append(condition.text.empty() ? "" : " and ");
    const std::string name = FieldExpression(access_, shape_, field);
    if (value.kind == HeldField::Kind::Null) {
        condition.text.append(name).append(" is null");
        return;
    }
    const bool exact = !shape_.unique && shape_.ColumnOf(field).IsText();
    condition.text.append(exact ? dialect_.exactText : "").append(name).append(" = ?");
    condition.values.push_back(ToValue(value));
}

std::optional<HeldRow> TableEditor::FindNew() const {
    if (dialect_.newRow.empty())
        return std::nullopt;
    try {
        const std::vector<HeldRow> found = Find({std::string(dialect_.newRow), {}});
        return found.empty() ? std::nullopt : std::optional(found.front());
    } catch (const Error&) {
        return std::nullopt;  // a table without such numbers
    }
}

// Two tell as much as any number.
std::vector<HeldRow> TableEditor::Find(const Condition& condition) const {
    const auto rows = access_.Query(
        "select " + SelectList(access_, shape_) + " from " + shape_.reference + " where " + condition.text,
        condition.values);
    std::vector<HeldRow> found;
    while (found.size() < 2 && rows->Next())
        found.push_back(ReadHeldRow(*rows));
    return found;
}

TableEditor::Condition TableEditor::CheckedCondition(const HeldRow& row) const {
    Condition condition = ConditionFor(row);
    const std::vector<HeldRow> found = Find(condition);
    if (found.empty())
        ThrowGone();
    if (found.size() > 1 && (shape_.unique || dialect_.one.empty() || !condition.complete))
        ThrowNotAlone(shape_);
    if (found.front() != row)
        throw Error(platform::kRowHasChanged, "The row has been changed by someone else since it was read.");
    return condition;
}

// A server that is too old to give the row back takes the statement without that wish.
std::optional<HeldRow> TableEditor::Run(const std::string& sql, const std::vector<dao::Value>& values,
                                        bool returns) const {
    if (returns) {
        try {
            const auto rows = access_.Query(sql + " returning " + SelectList(access_, shape_), values);
            std::optional<HeldRow> row;
            while (rows->Next())
                row = ReadHeldRow(*rows);
            return row;
        } catch (const Error& error) {
            if (!platform::ContainsIgnoringCase(error.Description(), "returning"))
                throw;
        }
    }
    access_.Query(sql, values);
    return std::nullopt;
}

}  // namespace vellumark
