#pragma once

#include <string>
#include <vector>

#include "platform/screens/gridRows.h"
#include "scenario/modSchemaList.h"

namespace vellumark {

// The Database schemas, as rows of a grid.
class SchemaRows : public GridRows {
 public:
    // Shows only rows in which that text occurs.
    void SetFilter(std::string text) { filter_ = std::move(text); }
    // Nothing when it isn't there any more.
    const SchemaEntry* Find(int id) const;

    std::vector<GridColumn> Columns() const override;
    std::vector<GridRow> Load() override;

 private:
    std::string filter_;
    std::vector<SchemaEntry> entries_;
};

}  // namespace vellumark
