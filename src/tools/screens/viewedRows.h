#pragma once

#include <array>

#include "platform/screens/gridRows.h"
#include "tools/viewedData.h"

namespace vellumark {

// The rows of the viewer, as a grid edits them. A refused change gives way to what is stored; a refused new
// row stays open, so that it can be mended.
class ViewedRows : public GridSource {
 public:
    explicit ViewedRows(ViewedData& data) : data_(data) {}

    // What the check boxes allow.
    void Allow(bool add, bool update, bool erase);
    // To be called when other rows are shown.
    void ForgetRows() const { kept_ = {}; }

    std::vector<GridColumn> Columns() const override;
    void Reload() override { ForgetRows(); }
    int Count() const override { return static_cast<int>(data_.Count()); }
    const GridRow& RowAt(int place) const override;
    int FindId(int id) const override { return id <= Count() ? id - 1 : -1; }

    bool CanInsert() const override { return add_ && data_.IsTable() && !data_.HasMore(); }
    bool CanDelete() const override { return erase_ && data_.IsTable(); }
    void BeforeInsert(GridRow& row) override;
    bool CellOpen(const GridRow& row, int column) const override;
    RowWrite InsertAtEnd(GridRow& row) override;
    RowWrite UpdateAt(int place, const GridRow& row) override;
    RowWrite DeleteAt(int place) override;

 private:
    RowWrite Outcome(RowChange change) const;

    ViewedData& data_;
    bool add_ = false, update_ = false, erase_ = false;
    // Those of the part that is on the screen, by their places.
    mutable std::array<GridRow, 256> kept_;
};

}  // namespace vellumark
