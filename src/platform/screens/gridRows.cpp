#include "platform/screens/gridRows.h"

#include <algorithm>

namespace vellumark {

int GridRows::FindId(int id) const {
    const auto found = std::ranges::find(held_, id, &GridRow::id);
    return found == held_.end() ? -1 : static_cast<int>(found - held_.begin());
}

RowWrite GridRows::InsertAtEnd(GridRow& row) {
    if (!Insert(row))
        return RowWrite::Open;
    held_.push_back(row);
    return RowWrite::Done;
}

RowWrite GridRows::UpdateAt(int place, const GridRow& row) {
    if (!Update(row))
        return RowWrite::Open;
    held_[static_cast<std::size_t>(place)] = row;
    return RowWrite::Done;
}

RowWrite GridRows::DeleteAt(int place) {
    if (!Delete(RowAt(place)))
        return RowWrite::Open;
    held_.erase(held_.begin() + place);
    return RowWrite::Done;
}

}  // namespace vellumark
