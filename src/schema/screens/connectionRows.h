#pragma once

#include <string>
#include <vector>

#include "platform/screens/gridRows.h"
#include "schema/modConnectionRows.h"

namespace vellumark {

// The stored connections, as rows of a grid.
class ConnectionRows : public GridRows {
 public:
    explicit ConnectionRows(bool deletes) : deletes_(deletes) {}

    // Shows only rows in which that text occurs.
    void SetFilter(std::string text) { filter_ = std::move(text); }
    // Nothing when it isn't there any more.
    const ConnectionDetails* Find(int id) const;

    std::vector<GridColumn> Columns() const override;
    std::vector<GridRow> Load() override;
    bool CanDelete() const override { return deletes_; }
    bool Delete(const GridRow& row) override;

 private:
    bool deletes_;
    std::string filter_;
    std::vector<ConnectionEntry> entries_;
};

}  // namespace vellumark
