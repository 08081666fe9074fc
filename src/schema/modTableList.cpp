#include "schema/modTableList.h"

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {

namespace {

using platform::EqualsIgnoringCase;
using platform::StartsWithIgnoringCase;

void ListThroughADO(std::string_view ownerFilter) {
    ado::Rowset tables = CurrentConnections().ado.OpenSchema(ado::SchemaKey::Tables);
    for (; !tables.IsEOF(); tables.MoveNext())
        if (!fSkipADOTable(tables.Text("TABLE_SCHEMA"), tables.Text("TABLE_TYPE"), ownerFilter))
            ListedTables.push_back({tables.Text("TABLE_NAME"), tables.Text("TABLE_SCHEMA")});
}

void ListThroughDAO(std::string_view ownerFilter, std::string_view ownerPrefix,
                    std::string_view tablePrefix) {
    for (const std::string& name : CurrentConnections().dao.TableNames()) {
        TableEntry entry = SplitOwnerName(name);
        if (!fIgnoreTable(ownerFilter, entry, ownerPrefix, tablePrefix))
            ListedTables.push_back(std::move(entry));
    }
}

}  // namespace

bool fListTables(char protocol, std::string_view ownerFilter, std::string_view ownerPrefix,
                 std::string_view tablePrefix) {
    ListedTables.clear();
    try {
        if (protocol == 'A')
            ListThroughADO(ownerFilter);
        else
            ListThroughDAO(ownerFilter, ownerPrefix, tablePrefix);
    } catch (const platform::Error& error) {
        return platform::Refuse(error.Line());
    }
    return true;
}

TableEntry SplitOwnerName(std::string_view fullName) {
    const std::size_t point = fullName.find('.');
    if (point == fullName.npos)
        return {std::string(fullName), ""};
    return {std::string(fullName.substr(point + 1)), std::string(fullName.substr(0, point))};
}

bool fIgnoreTable(std::string_view ownerFilter, const TableEntry& entry, std::string_view ownerPrefix,
                  std::string_view tablePrefix) {
    return (!ownerFilter.empty() && !EqualsIgnoringCase(entry.owner, ownerFilter)) ||
           (!ownerPrefix.empty() && StartsWithIgnoringCase(entry.owner, ownerPrefix)) ||
           (DBMSType == kDbmsOracle && entry.owner.empty()) ||
           (!tablePrefix.empty() && StartsWithIgnoringCase(entry.table, tablePrefix));
}

bool fSkipADOTable(std::string_view schema, std::string_view tableType, std::string_view ownerFilter) {
    return tableType != "TABLE" || (!ownerFilter.empty() && !EqualsIgnoringCase(schema, ownerFilter));
}

}  // namespace vellumark
