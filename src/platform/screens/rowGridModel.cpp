#include "platform/screens/rowGridModel.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

#include "platform/screens/qtText.h"

namespace vellumark {

RowGridModel::RowGridModel(GridSource& rows, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), columns_(rows.Columns()) {
    rows_.Reload();
    shown_ = rows_.Count();
    offering_ = rows_.CanInsert();
}

void RowGridModel::Reload() {
    beginResetModel();
    editedRow_ = -1;
    adding_ = false;
    columns_ = rows_.Columns();
    rows_.Reload();
    shown_ = rows_.Count();
    offering_ = rows_.CanInsert();
    endResetModel();
}

void RowGridModel::ShowGrown() {
    if (adding_)
        return;
    if (rows_.Count() > shown_) {
        beginInsertRows({}, shown_, rows_.Count() - 1);
        shown_ = rows_.Count();
        endInsertRows();
    }
    if (rows_.CanInsert() == offering_)
        return;
    if (offering_)
        beginRemoveRows({}, shown_, shown_);
    else
        beginInsertRows({}, shown_, shown_);
    offering_ = !offering_;
    if (offering_)
        endInsertRows();
    else
        endRemoveRows();
}

bool RowGridModel::CommitRow() {
    if (editedRow_ < 0)
        return true;
    if (!rows_.Validate(edited_))
        return false;
    const RowWrite outcome = adding_ ? rows_.InsertAtEnd(edited_) : rows_.UpdateAt(editedRow_, edited_);
    if (outcome != RowWrite::Done) {
        TakeRefusal(outcome, editedRow_);
        return false;
    }
    const int written = editedRow_;
    editedRow_ = -1;
    if (adding_)
        OfferNewRow();
    ShowRow(written);
    return true;
}

void RowGridModel::TakeRefusal(RowWrite outcome, int row) {
    if (outcome == RowWrite::Open)
        return;
    if (row == editedRow_)
        editedRow_ = -1;
    if (outcome == RowWrite::Gone)
        RemoveRow(row);
    else
        ShowRow(row);
}

void RowGridModel::RemoveRow(int row) {
    if (editedRow_ > row)
        --editedRow_;
    beginRemoveRows({}, row, row);
    --shown_;
    endRemoveRows();
}

void RowGridModel::CancelRow() {
    if (editedRow_ < 0)
        return;
    const int row = editedRow_;
    editedRow_ = -1;
    // A new row turns back into the empty one at the end.
    adding_ = false;
    ShowRow(row);
}

bool RowGridModel::DeleteRow(int row) {
    if (row == editedRow_ && adding_) {
        CancelRow();
        return true;
    }
    if (row < 0 || row >= shown_ || !rows_.CanDelete())
        return false;
    const RowWrite outcome = rows_.DeleteAt(row);
    if (outcome != RowWrite::Done) {
        TakeRefusal(outcome, row);
        return false;
    }
    if (row == editedRow_)
        editedRow_ = -1;
    RemoveRow(row);
    return true;
}

const GridRow* RowGridModel::RowAt(int row) const {
    if (row >= 0 && row == editedRow_)
        return &edited_;
    return row >= 0 && row < shown_ ? &rows_.RowAt(row) : nullptr;
}

int RowGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_ + (offering_ ? 1 : 0);
}

int RowGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RowGridModel::data(const QModelIndex& index, int role) const {
    const GridColumn& column = Column(index.column());
    if (role == Qt::TextAlignmentRole && column.kind == CellKind::Number)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::CheckStateRole &&
        role != Qt::ForegroundRole)
        return {};
    const GridRow* row = RowAt(index.row());
    return row == nullptr ? QVariant() : CellData(*row, index.column(), role);
}

QVariant RowGridModel::CellData(const GridRow& row, int column, int role) const {
    const std::string& cell = row.cells[static_cast<std::size_t>(column)];
    if (Column(column).kind == CellKind::Check)
        return role == Qt::CheckStateRole ? QVariant(cell == kChecked ? Qt::Checked : Qt::Unchecked)
                                          : QVariant();
    const bool isNull = row.State(static_cast<std::size_t>(column)) == CellState::Null;
    if (role == Qt::ForegroundRole)
        return isNull ? QVariant(QGuiApplication::palette().color(QPalette::PlaceholderText)) : QVariant();
    if (role == Qt::DisplayRole && isNull)
        return QString("(null)");
    return role == Qt::CheckStateRole ? QVariant() : QVariant(ToQt(cell));
}

QVariant RowGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal &&
        Column(section).kind == CellKind::Number)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return ToQt(Column(section).title);
    // As grids of databases mark the row being edited and the one for a new row.
    return section == editedRow_ ? QString(QChar(0x270E)) : IsNewRow(section) ? QString("*") : QString();
}

Qt::ItemFlags RowGridModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const GridColumn& column = Column(index.column());
    if (column.readOnly)
        return flags;
    const GridRow* row = RowAt(index.row());
    if (row != nullptr && !rows_.CellOpen(*row, index.column()))
        return flags;
    return flags | (column.kind == CellKind::Check ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool RowGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const bool check = Column(index.column()).kind == CellKind::Check;
    if (role != (check ? Qt::CheckStateRole : Qt::EditRole))
        return false;
    const std::string text = !check ? FromQt(value.toString()) : value.toInt() == Qt::Checked ? kChecked : "";
    const GridRow* present = RowAt(index.row());
    // Nothing typed leaves a cell what it is, Null too.
    if (text == (present ? present->cells[static_cast<std::size_t>(index.column())] : std::string()))
        return false;
    return ChangeCell(index, text, CellState::Text);
}

bool RowGridModel::SetCellState(const QModelIndex& index, CellState state) {
    const GridRow* present = RowAt(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (!Column(index.column()).nullable ||
        (present != nullptr && present->State(column) == state && present->cells[column].empty()))
        return false;
    return ChangeCell(index, "", state);
}

bool RowGridModel::ChangeCell(const QModelIndex& index, const std::string& text, CellState state) {
    if (!(flags(index) & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)) || !StartEditing(index.row()))
        return false;
    const auto column = static_cast<std::size_t>(index.column());
    edited_.cells[column] = text;
    if (state != edited_.State(column))
        edited_.SetState(column, state);
    rows_.CellChanged(edited_, index.column());
    ShowRow(index.row());
    return true;
}

bool RowGridModel::StartEditing(int row) {
    if (row == editedRow_)
        return true;
    if (!CommitRow())
        return false;
    if (IsNewRow(row))
        AppendNewRow();
    else
        edited_ = rows_.RowAt(row);
    editedRow_ = row;
    return true;
}

// The empty row at the end becomes a row; another one comes behind it once it is written.
void RowGridModel::AppendNewRow() {
    edited_ = GridRow{0, std::vector<std::string>(columns_.size())};
    rows_.BeforeInsert(edited_);
    adding_ = true;
}

void RowGridModel::OfferNewRow() {
    beginInsertRows({}, shown_ + 1, shown_ + 1);
    adding_ = false;
    ++shown_;
    endInsertRows();
}

void RowGridModel::ShowRow(int row) {
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    emit headerDataChanged(Qt::Vertical, row, row);
}

}  // namespace vellumark
