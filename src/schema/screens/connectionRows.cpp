#include "schema/screens/connectionRows.h"

#include <algorithm>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "schema/modConnectionDelete.h"
#include "schema/screens/rowFilter.h"

namespace vellumark {

namespace {

std::string UsesOf(int id) {
    std::string text;
    for (const std::string& use : ConnectionUses(id))
        text += (text.empty() ? "" : "; ") + use;
    return text;
}

GridRow RowOf(const ConnectionEntry& entry) {
    const ConnectionDetails& details = entry.details;
    return {entry.id,
            {std::string(platform::Trim(details.description)), UsesOf(entry.id), details.dbmsType,
             details.useODBC ? "ODBC" : "Direct", details.protocol == 'D' ? "DAO" : "ADO", details.dsn,
             details.mdbFile, details.server, details.database, details.userId, details.owner}};
}

}  // namespace

const ConnectionDetails* ConnectionRows::Find(int id) const {
    const auto found = std::ranges::find(entries_, id, &ConnectionEntry::id);
    return found == entries_.end() ? nullptr : &found->details;
}

std::vector<GridColumn> ConnectionRows::Columns() const {
    std::vector<GridColumn> columns;
    for (const char* title : {"Description", "Used By", "DBMS", "Access", "Protocol", "DSN", "MDB File",
                              "Server", "Database", "User Id", "Owner"})
        columns.push_back({title, CellKind::Text, true});
    return columns;
}

std::vector<GridRow> ConnectionRows::Load() {
    std::vector<GridRow> rows;
    try {
        const RepositoryScope repository;
        entries_ = ListConnections();
        for (const ConnectionEntry& entry : entries_)
            rows.push_back(RowOf(entry));
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the connections", error);
    }
    KeepMatching(rows, filter_);
    return rows;
}

bool ConnectionRows::Delete(const GridRow& row) {
    return fDeleteConnection(row.id);
}

}  // namespace vellumark
