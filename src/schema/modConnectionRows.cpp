#include "schema/modConnectionRows.h"

#include <algorithm>
#include <array>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modDescriptions.h"
#include "repository/modVellumark.h"
#include "schema/modDatabaseConnection.h"
#include "schema/modTableList.h"

namespace vellumark {

namespace {

constexpr std::string_view kToBeConfigured = "To Be Configured";

// The columns of [Database Connection] that simply hold a text.
struct TextColumn {
    std::string_view name;
    std::string ConnectionDetails::*field;
};

constexpr std::array kTextColumns = {
    TextColumn{"Description", &ConnectionDetails::description},
    TextColumn{"Type", &ConnectionDetails::dbmsType},
    TextColumn{"Connection String", &ConnectionDetails::connectionString},
    TextColumn{"DSN", &ConnectionDetails::dsn},
    TextColumn{"Database", &ConnectionDetails::database},
    TextColumn{"MDB File", &ConnectionDetails::mdbFile},
    TextColumn{"Server", &ConnectionDetails::server},
    TextColumn{"UserId", &ConnectionDetails::userId},
    TextColumn{"Password", &ConnectionDetails::password},
    TextColumn{"Owner", &ConnectionDetails::owner},
    TextColumn{"Ignore Table Prefix", &ConnectionDetails::ignoreTablePrefix},
    TextColumn{"Ignore Owner Prefix", &ConnectionDetails::ignoreOwnerPrefix},
    TextColumn{"Table", &ConnectionDetails::table},
    TextColumn{"Column", &ConnectionDetails::column},
};

dao::Recordset ConnectionRow(int id) {
    return RepositoryDatabase.OpenRecordset("select * from [Database Connection] where [Id] = ?", {id});
}

dao::Recordset SchemaRow() {
    return RepositoryDatabase.OpenRecordset("select * from [Database] where [Id] = ?", {CurrentDBSId});
}

ConnectionDetails DetailsFrom(const dao::Recordset& row) {
    ConnectionDetails details;
    for (const TextColumn& column : kTextColumns)
        details.*column.field = row.Text(column.name);
    details.useODBC = row.Text("Access Method") == "O";
    details.protocol = row.Text("VB Data Access Objects") == "D" ? 'D' : 'A';
    details.useDefaultString = row.Boolean("Flag VM Connection String");
    return details;
}

void SetCodes(dao::Recordset& row, const ConnectionDetails& details) {
    row.Set("Access Method", details.useODBC ? "O" : "D")
        .Set("VB Data Access Objects", std::string(1, details.protocol))
        .Set("Flag VM Connection String", details.useDefaultString);
}

// The Id under which the row stands then.
int StoreConnection(int id, const ConnectionDetails& details) {
    if (!ConnectionRow(id).IsEOF()) {
        UpdateConnection(id, details);
        return id;
    }
    const int newId = NextConnectionId();
    AddConnection(newId, details);
    return newId;
}

void StoreTarget(dao::Recordset& schema, ConnectionDetails& details) {
    details.schemaName = schema.Text("Name");
    details.description = TargetDescription(details);
    details.table.clear();
    details.column.clear();
    const int id = StoreConnection(schema.Long("FK CON Id Target"), details);
    schema.Edit();
    schema.Set("FK CON Id Target", id);
    schema.Update();
}

int StoreValue(ConnectionDetails& details) {
    details.table = SplitOwnerName(details.table).table;
    details.description = ValueDescription(details);
    return StoreConnection(ValueConnectionId, details);
}

std::string Detail(const ConnectionDetails& details) {
    return ConnectionDescription(details.dbmsType, details.dsn, details.database, details.mdbFile, "", "");
}

bool ComesBefore(const ConnectionEntry& a, const ConnectionEntry& b) {
    if (platform::EqualsIgnoringCase(a.details.description, b.details.description))
        return a.id < b.id;
    return platform::LessIgnoringCase(a.details.description, b.details.description);
}

}  // namespace

std::string SourceDescription(const ConnectionDetails& details) {
    return details.schemaName + " (Source) -" + Detail(details);
}

std::string TargetDescription(const ConnectionDetails& details) {
    return details.schemaName + " (Target) -" + Detail(details);
}

std::string ValueDescription(const ConnectionDetails& details) {
    return ConnectionDescription(details.dbmsType, details.dsn, details.database, details.mdbFile,
                                 details.table, details.column);
}

int NextConnectionId() {
    const RepositoryScope repository;
    return NextId(RepositoryDatabase, "select max([Id]) from [Database Connection]");
}

std::optional<ConnectionDetails> ReadConnection(int id) {
    const RepositoryScope repository;
    const dao::Recordset row = ConnectionRow(id);
    if (row.IsEOF())
        return std::nullopt;
    return DetailsFrom(row);
}

void AddConnection(int id, const ConnectionDetails& details) {
    const RepositoryScope repository;
    dao::Recordset row = RepositoryDatabase.OpenForAppend("Database Connection");
    row.AddNew();
    row.Set("Id", id);
    for (const TextColumn& column : kTextColumns)
        if (!(details.*column.field).empty())
            row.Set(column.name, details.*column.field);
    SetCodes(row, details);
    row.Update();
}

void UpdateConnection(int id, const ConnectionDetails& details) {
    const RepositoryScope repository;
    dao::Recordset row = ConnectionRow(id);
    row.Edit();
    for (const TextColumn& column : kTextColumns)
        row.Set(column.name, details.*column.field);
    SetCodes(row, details);
    row.Update();
}

std::vector<ConnectionEntry> ListConnections() {
    const RepositoryScope repository;
    std::vector<ConnectionEntry> entries;
    dao::Recordset rows = RepositoryDatabase.OpenRecordset("select * from [Database Connection]");
    for (; !rows.IsEOF(); rows.MoveNext())
        entries.push_back({rows.Long("Id"), DetailsFrom(rows)});
    std::ranges::sort(entries, ComesBefore);
    return entries;
}

void fCreateTargetPlaceholder(int id, std::string_view schemaName) {
    ConnectionDetails details;
    details.description = std::string(schemaName) + " (Target) - " + std::string(kToBeConfigured);
    details.dbmsType.clear();
    AddConnection(id, details);
}

bool IsToBeConfigured(const ConnectionDetails& details) {
    const std::string_view ending = platform::RightCharacters(details.description, kToBeConfigured.size());
    return platform::EqualsIgnoringCase(ending, kToBeConfigured);
}

ConnectionDetails ShowConnection(std::string_view kind) {
    ConnectionDetails details;
    try {
        const RepositoryScope repository;
        const dao::Recordset schema = SchemaRow();
        if (schema.IsEOF())
            return details;
        const int id = kind == kConnectTarget ? schema.Long("FK CON Id Target") : ValueConnectionId;
        details = ReadConnection(id).value_or(details);
        // Without a type the screen's first choice stands.
        if (details.dbmsType.empty())
            details.dbmsType = kDbmsJet;
        details.schemaName = schema.Text("Name");
        details.schemaDescription = schema.Text("Description");
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the connection", error);
    }
    return details;
}

bool fSaveConnection(std::string_view kind, ConnectionDetails details) {
    try {
        const RepositoryScope repository;
        dao::Transaction transaction(RepositoryDatabase);
        dao::Recordset schema = SchemaRow();
        if (schema.IsEOF())
            return platform::Refuse("Database not found in Vellumark.");
        int valueId = ValueConnectionId;
        if (kind == kConnectTarget)
            StoreTarget(schema, details);
        else
            valueId = StoreValue(details);
        transaction.Commit();
        ValueConnectionId = valueId;
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("saving the connection", error);
        return false;
    }
}

}  // namespace vellumark
