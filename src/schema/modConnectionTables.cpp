#include "schema/modConnectionTables.h"

#include <algorithm>
#include <functional>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "schema/modDatabaseConnection.h"

namespace vellumark {

namespace {

using platform::EqualsIgnoringCase;

// Does `work` while the form's database is connected. False behind a message.
bool fWithConnection(const ConnectionDetails& form, const std::function<bool()>& work) {
    const TargetAside aside;
    ConnectionForm = form;
    ConnectMode = kConnectForm;
    char protocol = form.protocol;
    try {
        return fDatabase_Connect_Main(protocol, false) && work();
    } catch (const platform::Error& error) {
        return platform::Refuse(error.Line());
    }
}

std::vector<std::string> ColumnsThroughADO(const TableEntry& table) {
    std::vector<std::string> names;
    ado::Rowset rows = CurrentConnections().ado.OpenSchema(ado::SchemaKey::Columns,
                                                           {std::nullopt, table.owner, table.table});
    for (; !rows.IsEOF(); rows.MoveNext())
        names.push_back(rows.Text("COLUMN_NAME"));
    return names;
}

std::vector<std::string> ColumnsThroughDAO(const TableEntry& table) {
    std::vector<std::string> names;
    for (const dao::Field& field : CurrentConnections().dao.TableDefinition(QualifiedName(table)).fields)
        names.push_back(field.name);
    return names;
}

std::string ServerName(char protocol) {
    const OpenConnections& open = CurrentConnections();
    return protocol == 'A' ? open.ado.ServerName() : open.dao.ServerName();
}

}  // namespace

std::optional<std::vector<TableEntry>> ListConnectionTables(const ConnectionDetails& form) {
    const auto list = [&] {
        return fListTables(form.protocol, form.owner, form.ignoreOwnerPrefix, form.ignoreTablePrefix);
    };
    if (!fWithConnection(form, list))
        return std::nullopt;
    return ListedTables;
}

std::optional<std::vector<std::string>> ListConnectionColumns(const ConnectionDetails& form,
                                                              const TableEntry& table) {
    std::vector<std::string> names;
    const auto list = [&] {
        names = form.protocol == 'A' ? ColumnsThroughADO(table) : ColumnsThroughDAO(table);
        return true;
    };
    if (!fWithConnection(form, list))
        return std::nullopt;
    return names;
}

std::string QualifiedName(const TableEntry& entry) {
    return entry.owner.empty() ? entry.table : entry.owner + "." + entry.table;
}

std::optional<std::size_t> FindTableEntry(const std::vector<TableEntry>& entries, std::string_view name) {
    auto found = std::ranges::find_if(
        entries, [&](const TableEntry& entry) { return EqualsIgnoringCase(QualifiedName(entry), name); });
    if (found == entries.end())
        found = std::ranges::find_if(
            entries, [&](const TableEntry& entry) { return EqualsIgnoringCase(entry.table, name); });
    if (found == entries.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - entries.begin());
}

std::optional<std::string> TestConnection(const ConnectionDetails& form) {
    std::string server;
    const auto ask = [&] {
        server = ServerName(form.protocol);
        return true;
    };
    if (!fWithConnection(form, ask))
        return std::nullopt;
    return server;
}

}  // namespace vellumark
