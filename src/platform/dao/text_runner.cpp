#include "platform/dao/text_runner.h"

#include <algorithm>
#include <functional>

#include "platform/dao/jet_sql.h"
#include "platform/dao/statement_cursor.h"
#include "platform/error.h"
#include "platform/running_call.h"
#include "platform/text.h"

namespace vellumark::dao {

namespace {

// What is left of a statement that had no rows.
class NoRows : public platform::Cursor {
 public:
    const std::vector<std::string>& FieldNames() const override { return names_; }
    bool Next() override { return false; }
    std::string_view Text(std::size_t /*column*/) const override { return {}; }
    bool IsNull(std::size_t /*column*/) const override { return true; }

 private:
    std::vector<std::string> names_;
};

std::function<void()> Interruption(sqlite3* connection) {
    return [connection] { sqlite3_interrupt(connection); };
}

class EndableCursor : public StatementCursor {
 public:
    EndableCursor(sqlite3* connection, Statement statement)
        : StatementCursor(std::move(statement)), call_(Interruption(connection)) {}

 private:
    platform::RunningCall call_;
};

}  // namespace

void TextRunner::Execute(std::string_view statement) {
    const bool isNextRow = insert_ && statement.starts_with(head_);
    if (database_.IsEmbedded() && (isNextRow || Prepare(statement)) &&
        BindValues(statement.substr(head_.size())))
        insert_->Execute();
    else
        database_.Execute(statement);
}

// Leaves nothing prepared when the statement is no such insert, for it may change the table.
bool TextRunner::Prepare(std::string_view statement) {
    insert_.reset();
    const std::optional<InsertHead> head = ParseInsertHead(statement);
    if (!head || !database_.HasTable(head->table))
        return false;
    ReadDateForms(*head);
    std::string marks = "?";
    for (std::size_t column = 1; column < dateForms_.size(); ++column)
        marks += ",?";
    try {
        insert_.emplace(database_.Prepare(TranslateJetSql(head->text) + marks + ")"));
    } catch (const platform::Error&) {
        return false;  // the statement itself will tell why
    }
    head_ = head->text;
    return true;
}

void TextRunner::ReadDateForms(const InsertHead& head) {
    const TableDef table = database_.TableDefinition(head.table);
    dateForms_.clear();
    if (head.columns.empty())
        for (const Field& field : table.fields)
            dateForms_.push_back(DateFormOf(field.type));
    for (const std::string_view name : head.columns) {
        const auto field = std::ranges::find_if(
            table.fields, [&](const Field& each) { return platform::EqualsIgnoringCase(each.name, name); });
        dateForms_.push_back(field == table.fields.end() ? DateForm::None : DateFormOf(field->type));
    }
    texts_.resize(dateForms_.size());
}

// False when the values are not simply one literal for each column.
bool TextRunner::BindValues(std::string_view values) {
    LiteralReader reader(values);
    Literal literal;
    const int count = static_cast<int>(dateForms_.size());
    for (int column = 0; column < count; ++column) {
        if ((column > 0 && !reader.TakeComma()) || !reader.Read(literal))
            return false;
        if (literal.kind == Literal::Kind::Text)
            BindText(column, literal);
        else if (literal.kind == Literal::Kind::Integer)
            insert_->Bind(column, literal.integer);
        else if (literal.kind == Literal::Kind::Real)
            insert_->Bind(column, literal.real);
        else
            insert_->Bind(column, {});
    }
    return reader.TakeEnd();
}

void TextRunner::BindText(int column, const Literal& literal) {
    const auto place = static_cast<std::size_t>(column);
    std::string& own = texts_[place];
    own.clear();
    if (dateForms_[place] != DateForm::None && AppendStoredDate(own, dateForms_[place], literal.text))
        return insert_->BindUnowned(column, own);
    if (!literal.hasDoubledQuote)
        return insert_->BindUnowned(column, literal.text);
    own = platform::Replace(literal.text, "''", "'");
    insert_->BindUnowned(column, own);
}

std::unique_ptr<platform::Cursor> OpenText(const Database& database, std::string_view statement) {
    if (!database.IsEmbedded())
        return database.OpenCursor(statement);
    if (Statement prepared = database.Prepare(TranslateJetSql(statement)); prepared.ColumnCount() > 0)
        return std::make_unique<EndableCursor>(database.Handle(), std::move(prepared));
    const platform::RunningCall call(Interruption(database.Handle()));
    TextRunner(database).Execute(statement);
    return std::make_unique<NoRows>();
}

}  // namespace vellumark::dao
