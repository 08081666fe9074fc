#pragma once

#include <vector>

#include "platform/screens/gridRows.h"
#include "scenario/modGenericValuesMaintenance.h"

namespace vellumark {

// Categories as rows of a grid.
class CategoryRows : public GridRows {
 public:
    explicit CategoryRows(bool editable) : editable_(editable) {}

    void SetKind(CategoryKind kind) { kind_ = kind; }
    static EditedCategory CategoryOf(const GridRow& row);

    std::vector<GridColumn> Columns() const override;
    std::vector<GridRow> Load() override;
    bool CanInsert() const override { return editable_; }
    bool CanDelete() const override { return editable_; }
    void BeforeInsert(GridRow& row) override;
    bool Insert(GridRow& row) override;
    bool Update(const GridRow& row) override;
    bool Delete(const GridRow& row) override;

 private:
    bool editable_;
    CategoryKind kind_ = CategoryKind::All;
};

// The values of one Category, likewise.
class GenericValueRows : public GridRows {
 public:
    explicit GenericValueRows(bool editable) : editable_(editable) {}

    // Id 0 for no Category: there are no rows then, and none can be added.
    void SetCategory(int id, char dataType);
    int CategoryId() const { return categoryId_; }
    EditedValue ValueOf(const GridRow& row) const {
        return {row.id, categoryId_, row.cells[0], 0, 0, "", ""};
    }

    std::vector<GridColumn> Columns() const override;
    std::vector<GridRow> Load() override;
    bool CanInsert() const override { return editable_ && categoryId_ > 0; }
    bool CanDelete() const override { return editable_; }
    bool Insert(GridRow& row) override;
    bool Update(const GridRow& row) override;
    bool Delete(const GridRow& row) override { return fDeleteValue(ValueOf(row)); }

 private:
    bool editable_;
    int categoryId_ = 0;
    char dataType_ = 'C';
};

}  // namespace vellumark
