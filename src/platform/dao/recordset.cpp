#include "platform/dao/recordset.h"

#include <algorithm>

#include "platform/dao/database.h"
#include "platform/dao/jet_sql.h"
#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::dao {

namespace {

using platform::Error;

// The same statement with the row's key in front, or empty text when its rows aren't those of one table.
std::string WithRowId(const std::string& sql) {
    constexpr std::string_view start = "select * from [";
    if (!platform::StartsWithIgnoringCase(sql, start))
        return {};
    const std::size_t close = sql.find(']');
    const std::string_view rest =
        close == sql.npos ? "" : platform::Trim(std::string_view(sql).substr(close + 1));
    if (rest.starts_with(',') || platform::ContainsIgnoringCase(rest.substr(0, 12), "join"))
        return {};
    return "select rowid, * from [" + sql.substr(start.size());
}

std::string TableIn(std::string_view sql) {
    const std::size_t open = sql.find('[');
    return std::string(sql.substr(open + 1, sql.find(']') - open - 1));
}

}  // namespace

bool IsSelect(std::string_view source) {
    return platform::StartsWithIgnoringCase(platform::Trim(source), "select");
}

Recordset::Recordset(const Database& database, std::string_view source, const Parameters& parameters)
    : connection_(database.Handle()) {
    const std::string sql = TranslateJetSql(IsSelect(source) ? source : "select * from " + Bracketed(source));
    const std::string keyed = WithRowId(sql);
    std::optional<Statement> statement;
    if (!keyed.empty()) {
        try {
            statement.emplace(database.Prepare(keyed));
            table_ = TableIn(sql);
        } catch (const Error&) {
            // A view or a table without row keys can still be read.
        }
    }
    if (!statement)
        statement.emplace(database.Prepare(sql));
    statement->BindAll(parameters);
    Load(std::move(*statement), !table_.empty());
}

Recordset::Recordset(const Database& database, std::string_view table)
    : connection_(database.Handle()), table_(table) {
    const Statement statement = database.Prepare("select * from " + Bracketed(table));
    for (int i = 0; i < statement.ColumnCount(); ++i)
        fields_.emplace_back(statement.ColumnName(i));
}

Recordset::Recordset(platform::Cursor& rows) : fields_(rows.FieldNames()) {
    while (rows.Next()) {
        Row row{0, {}};
        for (std::size_t column = 0; column < fields_.size(); ++column)
            row.values.push_back(rows.IsNull(column) ? Value() : Value(std::string(rows.Text(column))));
        rows_.push_back(std::move(row));
    }
}

void Recordset::Load(Statement statement, bool withRowId) {
    const int first = withRowId ? 1 : 0;
    const int columns = statement.ColumnCount();
    for (int i = first; i < columns; ++i)
        fields_.emplace_back(statement.ColumnName(i));
    while (statement.Step()) {
        Row row{withRowId ? statement.ColumnInteger(0) : 0, {}};
        row.values.reserve(fields_.size());
        for (int i = first; i < columns; ++i)
            row.values.push_back(statement.ColumnValue(i));
        rows_.push_back(std::move(row));
    }
}

bool Recordset::FindFirst(std::string_view field, std::string_view text) {
    const std::size_t index = FieldIndex(field);
    const auto found = std::ranges::find_if(
        rows_, [&](const Row& row) { return platform::EqualsIgnoringCase(ToText(row.values[index]), text); });
    if (found == rows_.end())
        return false;
    at_ = found - rows_.begin();
    return true;
}

std::size_t Recordset::FieldIndex(std::string_view field) const {
    const auto found = std::ranges::find_if(
        fields_, [&](const auto& name) { return platform::EqualsIgnoringCase(name, field); });
    if (found == fields_.end())
        throw Error(platform::kNoSuchItem,
                    "Item not found in this collection: '" + std::string(field) + "'.");
    return static_cast<std::size_t>(found - fields_.begin());
}

Recordset::Row& Recordset::CurrentRow() {
    if (at_ < 0 || at_ >= Size())
        throw Error(platform::kNoCurrentRecord, "No current record.");
    return rows_[static_cast<std::size_t>(at_)];
}

const Value& Recordset::Get(std::string_view field) const {
    if (at_ < 0 || at_ >= Size())
        throw Error(platform::kNoCurrentRecord, "No current record.");
    return rows_[static_cast<std::size_t>(at_)].values[FieldIndex(field)];
}

void Recordset::AddNew() {
    mode_ = Mode::Add;
    changedFields_.clear();
    changedValues_.clear();
}

void Recordset::Edit() {
    CurrentRow();
    AddNew();
    mode_ = Mode::Edit;
}

Recordset& Recordset::Set(std::string_view field, const Parameter& value) {
    if (mode_ == Mode::Browse)
        throw Error(platform::kNoCurrentRecord, "Update or CancelUpdate without AddNew or Edit.");
    const std::size_t index = FieldIndex(field);
    const auto known = std::ranges::find(changedFields_, index);
    if (known != changedFields_.end()) {
        changedValues_[static_cast<std::size_t>(known - changedFields_.begin())] = value.Get();
    } else {
        changedFields_.push_back(index);
        changedValues_.push_back(value.Get());
    }
    return *this;
}

void Recordset::Update() {
    if (table_.empty())
        throw Error(platform::kReadOnlyDatabase, "Cannot update. Database or object is read-only.");
    const Mode mode = mode_;
    mode_ = Mode::Browse;
    if (changedFields_.empty())
        return;
    if (mode == Mode::Add)
        Insert();
    else if (mode == Mode::Edit)
        Change();
}

void Recordset::Insert() {
    if (!insert_ || insertFields_ != changedFields_) {
        std::string names, marks;
        for (const std::size_t field : changedFields_) {
            names += (names.empty() ? "" : ", ") + Bracketed(fields_[field]);
            marks += marks.empty() ? "?" : ", ?";
        }
        insert_.emplace(connection_,
                        "insert into " + Bracketed(table_) + " (" + names + ") values (" + marks + ")");
        insertFields_ = changedFields_;
    }
    for (std::size_t i = 0; i < changedValues_.size(); ++i)
        insert_->Bind(static_cast<int>(i), changedValues_[i]);
    insert_->Execute();
}

void Recordset::Change() {
    Row& row = CurrentRow();
    std::string assignments;
    for (const std::size_t field : changedFields_)
        assignments += (assignments.empty() ? "" : ", ") + Bracketed(fields_[field]) + " = ?";
    Statement statement(connection_,
                        "update " + Bracketed(table_) + " set " + assignments + " where rowid = ?");
    for (std::size_t i = 0; i < changedValues_.size(); ++i)
        statement.Bind(static_cast<int>(i), changedValues_[i]);
    statement.Bind(static_cast<int>(changedValues_.size()), row.rowId);
    statement.Execute();
    for (std::size_t i = 0; i < changedValues_.size(); ++i)
        row.values[changedFields_[i]] = changedValues_[i];
}

void Recordset::Delete() {
    if (table_.empty())
        throw Error(platform::kReadOnlyDatabase, "Cannot update. Database or object is read-only.");
    Statement statement(connection_, "delete from " + Bracketed(table_) + " where rowid = ?");
    statement.Bind(0, CurrentRow().rowId);
    statement.Execute();
    rows_.erase(rows_.begin() + at_);
}

}  // namespace vellumark::dao
