#include "schema/screens/schemaRows.h"

#include <algorithm>

#include "schema/screens/rowFilter.h"

namespace vellumark {

const SchemaEntry* SchemaRows::Find(int id) const {
    const auto found = std::ranges::find(entries_, id, &SchemaEntry::id);
    return found == entries_.end() ? nullptr : &*found;
}

std::vector<GridColumn> SchemaRows::Columns() const {
    std::vector<GridColumn> columns;
    for (const char* title : {"Name", "Description", "Source", "Model", "Last Accessed"})
        columns.push_back({title, CellKind::Text, true});
    return columns;
}

std::vector<GridRow> SchemaRows::Load() {
    entries_ = ListSchemas();
    std::vector<GridRow> rows;
    for (const SchemaEntry& entry : entries_)
        rows.push_back(
            {entry.id, {entry.name, entry.description, entry.source, entry.model, entry.lastAccessed}});
    KeepMatching(rows, filter_);
    return rows;
}

}  // namespace vellumark
