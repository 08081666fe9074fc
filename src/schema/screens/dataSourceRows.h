#pragma once

#include "platform/odbc/sources.h"
#include "platform/screens/gridRows.h"

namespace vellumark {

// The ODBC data sources of this computer, as rows of a grid.
class DataSourceRows : public GridRows {
 public:
    std::vector<GridColumn> Columns() const override {
        return {{"Name", CellKind::Text, true}, {"Driver", CellKind::Text, true}};
    }
    std::vector<GridRow> Load() override {
        std::vector<GridRow> rows;
        for (odbc::DataSource& source : odbc::DataSources())
            rows.push_back({static_cast<int>(rows.size()) + 1, {source.name, source.driver}});
        return rows;
    }
};

}  // namespace vellumark
