#include "tools/viewedData.h"

#include <algorithm>
#include <chrono>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "schema/modConnectionTables.h"
#include "tools/fieldText.h"
#include "tools/plainSelect.h"
#include "tools/sqlRunner.h"

namespace vellumark {

namespace {

using platform::Error;

constexpr std::size_t kFirstRows = 200;
constexpr std::size_t kRowsAtOnce = 5000;
constexpr std::chrono::milliseconds kBetweenQuestions{20};

void ShowFailure(const Error& error) {
    platform::ShowExclamation("Error " + std::to_string(error.Number()) + ": " + error.Description());
}

class RowKeeper : public SQLRowSink {
 public:
    void TakeFields(const std::vector<std::string>& names) override { names_ = names; }
    bool TakeRow(const platform::Cursor& row) override {
        rows_.Append(ReadHeldRow(row));
        return true;
    }

    HeldRows& Rows() { return rows_; }
    const std::vector<std::string>& Names() const { return names_; }

 private:
    HeldRows rows_;
    std::vector<std::string> names_;
};

bool Serves(const TableShape& shape, const std::vector<std::string>& names) {
    return names.size() == shape.FieldCount() &&
           std::ranges::equal(names.begin() + static_cast<std::ptrdiff_t>(shape.hidden.size()), names.end(),
                              shape.columns.begin(), shape.columns.end(), platform::EqualsIgnoringCase, {},
                              &ShownColumn::name);
}

// With what tells the rows apart.
std::string WithHidden(std::string_view text, const PlainSelect& select, const TableShape& shape) {
    std::string list;
    for (const std::string& part : shape.hidden)
        list += part + ", ";
    return std::string(text).insert(select.listAt, list);
}

TableShape ShapeOfNames(const std::vector<std::string>& names) {
    TableShape shape;
    for (const std::string& name : names)
        shape.columns.push_back({name, {}, false, false});
    return shape;
}

}  // namespace

ViewedData::ViewedData(const OpenConnections& connections, char protocol)
    : connections_(connections),
      protocol_(protocol),
      access_(protocol == 'A' ? connections.ado.OpenRowAccess() : connections.dao.OpenRowAccess()),
      judges_(DialectOf(*access_).embedded) {}

bool ViewedData::fShowTable(const TableEntry& table) {
    try {
        Open(table);
        return true;
    } catch (const Error& error) {
        ShowFailure(error);
        return false;
    }
}

void ViewedData::Open(const TableEntry& table) {
    TableShape shape = ReadTableShape(*access_, table.owner, table.table);
    auto reader = std::make_unique<TableReader>(*access_, shape);
    HeldRows rows;
    const bool more = reader->Read(kFirstRows, [&](const HeldRow& row) { rows.Append(row); });
    Forget();
    title_ = "Table: " + QualifiedName(table);
    table_ = table;
    editor_ = std::make_unique<TableEditor>(*access_, shape);
    shape_ = std::move(shape);
    rows_ = std::move(rows);
    if (more)
        reader_ = std::move(reader);
}

void ViewedData::Forget() {
    reader_.reset();
    editor_.reset();
    shape_ = {};
    table_ = {};
}

bool ViewedData::fReadMore(std::size_t rows) {
    try {
        if (HasMore() && !reader_->Read(rows, [this](const HeldRow& row) { rows_.Append(row); }))
            reader_.reset();
        return true;
    } catch (const Error& error) {
        reader_.reset();
        ShowFailure(error);
        return false;
    }
}

bool ViewedData::fRequery(std::size_t rows) {
    if (table_.table.empty())
        return true;
    if (!fShowTable(TableEntry(table_)))
        return false;
    while (HasMore() && rows_.Count() < rows)
        if (!fReadMore(kRowsAtOnce))
            return false;
    return true;
}

// A row that is written while others are still being read could come up among them once more.
void ViewedData::ReadRest() {
    ReadRest([] { return true; });
}

// Whether `goOn` let it come to its end.
bool ViewedData::ReadRest(const std::function<bool()>& goOn) {
    while (HasMore()) {
        if (!goOn())
            return false;
        if (!reader_->Read(kRowsAtOnce, [this](const HeldRow& row) { rows_.Append(row); }))
            reader_.reset();
    }
    return true;
}

std::optional<TableShape> ViewedData::ShapeOf(const std::optional<PlainSelect>& select) const {
    if (!select)
        return std::nullopt;
    try {
        return ReadTableShape(*access_, select->owner, select->table);
    } catch (const Error&) {
        return std::nullopt;
    }
}

bool ViewedData::fRunSQL(std::string_view text, const std::function<bool()>& goOn) {
    const std::optional<PlainSelect> select = ReadPlainSelect(text);
    std::optional<TableShape> shape = ShapeOf(select);
    if (shape && !shape->hidden.empty() &&
        RunText(WithHidden(text, *select, *shape), shape, goOn).outcome != SQLOutcome::Failed)
        return true;
    const SQLResult result = RunText(text, shape, goOn);
    if (result.outcome == SQLOutcome::Failed)
        platform::ShowExclamation(result.Line());
    return result.outcome != SQLOutcome::Failed;
}

SQLResult ViewedData::RunText(std::string_view text, const std::optional<TableShape>& shape,
                              const std::function<bool()>& goOn) {
    try {
        if (!ReadRest(goOn))
            return {SQLOutcome::Stopped, 0, 0, {}};
    } catch (const Error&) {
        reader_.reset();  // what the database has to say comes with the text
    }
    RowKeeper keeper;
    SQLRunner runner(connections_, protocol_, std::string(text), keeper);
    while (!runner.WaitUntilDone(kBetweenQuestions))
        if (!goOn())
            runner.Stop();
    const SQLResult& result = runner.Result();
    if (result.outcome == SQLOutcome::Rows ||
        (result.outcome == SQLOutcome::Stopped && keeper.Rows().Count() > 0))
        TakeResult(std::move(keeper.Rows()), keeper.Names(), shape);
    return result;
}

void ViewedData::TakeResult(HeldRows rows, const std::vector<std::string>& names,
                            const std::optional<TableShape>& shape) {
    Forget();
    title_ = "SQL Results";
    rows_ = std::move(rows);
    if (!shape || !Serves(*shape, names)) {
        shape_ = ShapeOfNames(names);
        return;
    }
    shape_ = *shape;
    editor_ = std::make_unique<TableEditor>(*access_, shape_);
}

HeldRow ViewedData::Row(std::size_t place) const {
    HeldRow row = rows_.Row(place);
    row.erase(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(shape_.hidden.size()));
    return row;
}

ColumnChanges ViewedData::Changes(const std::vector<TypedCell>& cells) const {
    ColumnChanges changes(shape_.columns.size());
    for (const TypedCell& cell : cells)
        changes[cell.column] =
            cell.isNull ? NullField() : FieldFromText(cell.text, shape_.columns[cell.column], judges_);
    return changes;
}

bool ViewedData::fInsert(const std::vector<TypedCell>& cells) {
    try {
        ReadRest();
        rows_.Append(editor_->Insert(Changes(cells)));
        return true;
    } catch (const Error& error) {
        ShowFailure(error);
        return false;
    }
}

RowChange ViewedData::Update(std::size_t place, const std::vector<TypedCell>& cells) {
    return Change(place,
                  [&](const HeldRow& row) { rows_.Replace(place, editor_->Update(row, Changes(cells))); });
}

RowChange ViewedData::Delete(std::size_t place) {
    return Change(place, [&](const HeldRow& row) {
        editor_->Delete(row);
        rows_.Erase(place);
    });
}

RowChange ViewedData::Change(std::size_t place, const std::function<void(const HeldRow&)>& change) {
    try {
        ReadRest();
        change(rows_.Row(place));
        return RowChange::Done;
    } catch (const Error& error) {
        ShowFailure(error);
        return error.Number() == platform::kReadOnlyDatabase ? RowChange::Refused : ShowAsStored(place);
    }
}

RowChange ViewedData::ShowAsStored(std::size_t place) {
    try {
        const std::optional<HeldRow> stored = editor_->Reread(rows_.Row(place));
        if (!stored) {
            rows_.Erase(place);
            return RowChange::Gone;
        }
        rows_.Replace(place, *stored);
    } catch (const Error&) {
        // A connection that is lost tells nothing any more: the row stays as it was read.
    }
    return RowChange::Refused;
}

}  // namespace vellumark
