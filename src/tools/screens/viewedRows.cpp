#include "tools/screens/viewedRows.h"

#include "platform/dialogs.h"
#include "tools/fieldText.h"

namespace vellumark {

namespace {

// A row's id is its place plus one; a new row has none.
GridRow Shown(const HeldRow& held, int id) {
    GridRow row{id, {}};
    row.cells.reserve(held.size());
    for (const HeldField& field : held)
        row.cells.push_back(FieldText(field));
    for (std::size_t column = 0; column < held.size(); ++column)
        if (held[column].kind == HeldField::Kind::Null)
            row.SetState(column, CellState::Null);
    return row;
}

TypedCell Typed(const GridRow& row, std::size_t column) {
    return {column, row.State(column) == CellState::Null, row.cells[column]};
}

}  // namespace

void ViewedRows::Allow(bool add, bool update, bool erase) {
    add_ = add;
    update_ = update;
    erase_ = erase;
}

std::vector<GridColumn> ViewedRows::Columns() const {
    std::vector<GridColumn> columns;
    for (const ShownColumn& column : data_.Columns())
        columns.push_back({.title = column.name,
                           .kind = column.IsNumber() ? CellKind::Number : CellKind::Text,
                           .readOnly = !column.writable,
                           .nullable = column.writable && !column.required});
    return columns;
}

const GridRow& ViewedRows::RowAt(int place) const {
    GridRow& row = kept_[static_cast<std::size_t>(place) % kept_.size()];
    if (row.id != place + 1)
        row = Shown(data_.Row(static_cast<std::size_t>(place)), place + 1);
    return row;
}

void ViewedRows::BeforeInsert(GridRow& row) {
    row.states.assign(row.cells.size(), CellState::Unset);
}

bool ViewedRows::CellOpen(const GridRow& row, int column) const {
    if (row.id == 0)
        return true;
    const auto place = static_cast<std::size_t>(row.id - 1);
    return update_ && data_.IsTable() && ShowsWhole(data_.Row(place)[static_cast<std::size_t>(column)]);
}

RowWrite ViewedRows::InsertAtEnd(GridRow& row) {
    std::vector<TypedCell> cells;
    for (std::size_t column = 0; column < row.cells.size(); ++column)
        if (row.State(column) != CellState::Unset)
            cells.push_back(Typed(row, column));
    return data_.fInsert(cells) ? RowWrite::Done : RowWrite::Open;
}

RowWrite ViewedRows::UpdateAt(int place, const GridRow& row) {
    const GridRow before = RowAt(place);
    std::vector<TypedCell> cells;
    for (std::size_t column = 0; column < row.cells.size(); ++column)
        if (row.cells[column] != before.cells[column] || row.State(column) != before.State(column))
            cells.push_back(Typed(row, column));
    return Outcome(data_.Update(static_cast<std::size_t>(place), cells));
}

RowWrite ViewedRows::DeleteAt(int place) {
    if (!platform::AskYesNo("Do you really want to delete this row of data?"))
        return RowWrite::Open;
    return Outcome(data_.Delete(static_cast<std::size_t>(place)));
}

RowWrite ViewedRows::Outcome(RowChange change) const {
    ForgetRows();
    if (change == RowChange::Done)
        return RowWrite::Done;
    return change == RowChange::Gone ? RowWrite::Gone : RowWrite::Undone;
}

}  // namespace vellumark
