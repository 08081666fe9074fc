#include "platform/screens/rowGridModel.h"

#include <algorithm>

#include "platform/screens/qtText.h"

namespace vellumark {

RowGridModel::RowGridModel(GridRows& rows, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), columns_(rows.Columns()), shown_(rows.Load()) {}

void RowGridModel::Reload() {
    beginResetModel();
    editedRow_ = -1;
    adding_ = false;
    columns_ = rows_.Columns();
    shown_ = rows_.Load();
    endResetModel();
}

bool RowGridModel::CommitRow() {
    if (editedRow_ < 0)
        return true;
    GridRow& row = shown_[static_cast<std::size_t>(editedRow_)];
    if (!rows_.Validate(row) || !(adding_ ? rows_.Insert(row) : rows_.Update(row)))
        return false;
    const int written = editedRow_;
    editedRow_ = -1;
    if (adding_)
        OfferNewRow();
    ShowRow(written);
    return true;
}

void RowGridModel::CancelRow() {
    if (editedRow_ < 0)
        return;
    const int row = editedRow_;
    editedRow_ = -1;
    // A new row turns back into the empty one at the end.
    if (adding_)
        shown_.pop_back();
    else
        shown_[static_cast<std::size_t>(row)] = before_;
    adding_ = false;
    ShowRow(row);
}

bool RowGridModel::DeleteRow(int row) {
    if (row == editedRow_ && adding_) {
        CancelRow();
        return true;
    }
    const GridRow* shown = RowAt(row);
    if (shown == nullptr || !rows_.CanDelete() || !rows_.Delete(row == editedRow_ ? before_ : *shown))
        return false;
    if (row == editedRow_)
        editedRow_ = -1;
    else if (editedRow_ > row)
        --editedRow_;
    beginRemoveRows({}, row, row);
    shown_.erase(shown_.begin() + row);
    endRemoveRows();
    return true;
}

const GridRow* RowGridModel::RowAt(int row) const {
    return row >= 0 && row < static_cast<int>(shown_.size()) ? &shown_[static_cast<std::size_t>(row)]
                                                             : nullptr;
}

int RowGridModel::FindId(int id) const {
    const auto found = std::ranges::find(shown_, id, &GridRow::id);
    return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

int RowGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size()) + (rows_.CanInsert() && !adding_ ? 1 : 0);
}

int RowGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RowGridModel::data(const QModelIndex& index, int role) const {
    const GridRow* row = RowAt(index.row());
    const GridColumn& column = Column(index.column());
    if (role == Qt::TextAlignmentRole && column.kind == CellKind::Number)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (row == nullptr)
        return {};
    const std::string& cell = row->cells[static_cast<std::size_t>(index.column())];
    if (column.kind == CellKind::Check)
        return role == Qt::CheckStateRole ? QVariant(cell == kChecked ? Qt::Checked : Qt::Unchecked)
                                          : QVariant();
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return ToQt(cell);
    return {};
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
    if (role != (check ? Qt::CheckStateRole : Qt::EditRole) ||
        !(flags(index) & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)))
        return false;
    const std::string text = !check ? FromQt(value.toString()) : value.toInt() == Qt::Checked ? kChecked : "";
    const GridRow* present = RowAt(index.row());
    const std::string& old =
        present ? present->cells[static_cast<std::size_t>(index.column())] : std::string();
    if (text == old)
        return false;
    if (!StartEditing(index.row()))
        return false;
    GridRow& row = shown_[static_cast<std::size_t>(index.row())];
    row.cells[static_cast<std::size_t>(index.column())] = text;
    rows_.CellChanged(row, index.column());
    ShowRow(index.row());
    return true;
}

bool RowGridModel::StartEditing(int row) {
    if (row == editedRow_)
        return true;
    if (!CommitRow())
        return false;
    if (IsNewRow(row)) {
        AppendNewRow();
    } else {
        before_ = shown_[static_cast<std::size_t>(row)];
    }
    editedRow_ = row;
    return true;
}

// The empty row at the end becomes a row; another one comes behind it once it is written.
void RowGridModel::AppendNewRow() {
    GridRow row{0, std::vector<std::string>(columns_.size())};
    rows_.BeforeInsert(row);
    shown_.push_back(std::move(row));
    adding_ = true;
}

void RowGridModel::OfferNewRow() {
    const int end = static_cast<int>(shown_.size());
    beginInsertRows({}, end, end);
    adding_ = false;
    endInsertRows();
}

void RowGridModel::ShowRow(int row) {
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    emit headerDataChanged(Qt::Vertical, row, row);
}

}  // namespace vellumark
