#pragma once

#include <vector>

#include "platform/screens/gridRows.h"
#include "scenario/modGenericValuesMaintenance.h"

namespace vellumark {

// Conversion Codes as rows of a grid.
class ConversionCodeRows : public GridRows {
 public:
    std::vector<GridColumn> Columns() const override { return {{"Name"}}; }
    std::vector<GridRow> Load() override;
    bool CanInsert() const override { return true; }
    bool CanDelete() const override { return true; }
    bool Insert(GridRow& row) override;
    bool Update(const GridRow& row) override;
    bool Delete(const GridRow& row) override;
};

// The codes and values of one Conversion Code, likewise.
class CodeValueRows : public GridRows {
 public:
    // 0 for no Conversion Code: there are no rows then, and none can be added.
    void SetConversionCode(int id) { conversionId_ = id; }
    int ConversionId() const { return conversionId_; }

    std::vector<GridColumn> Columns() const override { return {{"Code"}, {"Value"}}; }
    std::vector<GridRow> Load() override;
    bool CanInsert() const override { return conversionId_ > 0; }
    bool CanDelete() const override { return true; }
    bool Insert(GridRow& row) override;
    bool Update(const GridRow& row) override;
    bool Delete(const GridRow& row) override { return fDeleteCodeValue(ValueOf(row)); }

 private:
    EditedCodeValue ValueOf(const GridRow& row) const {
        return {row.id, conversionId_, row.cells[0], row.cells[1]};
    }

    int conversionId_ = 0;
};

}  // namespace vellumark
