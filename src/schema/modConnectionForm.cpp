#include "schema/modConnectionForm.h"

#include "platform/dialogs.h"
#include "platform/text.h"
#include "schema/modConnectionRows.h"
#include "schema/modConnectionString.h"

namespace vellumark {

namespace {

constexpr std::string_view kNewInstructions =
    "Vellumark can be used to read the database schema details directly from your database. Enter a unique "
    "name for the schema, select your DBMS and how it is reached, fill in the fields that are open, and "
    "press "
    "OK. The details serve as the schema's Target Connection too, which can be changed later.";

constexpr std::string_view kTargetInstructions =
    "Vellumark can put test data directly into your database. Select the DBMS of the database to be filled "
    "and "
    "how it is reached, fill in the fields that are open, and press OK to connect.";

constexpr std::string_view kValueInstructions =
    "Vellumark can take the values of a column from another database. Select its DBMS and how it is reached, "
    "fill in the fields that are open, press Refresh, and select the table and the column to read from.";

}  // namespace

ConnectionScreen DescribeConnectionScreen(std::string_view mode, std::string_view table,
                                          std::string_view column) {
    if (mode == kConnectNew)
        return {"New Database Connection Details", kNewInstructions, true, false, false};
    if (mode == kConnectTarget)
        return {"Target Database Connection Details", kTargetInstructions, false, false, true};
    return {"Select Database Source for: " + platform::ToUpper(table) + " " + platform::ToLower(column),
            kValueInstructions, false, true, true};
}

ConnectionDetails LoadConnectionForm(std::string_view mode) {
    ConnectionDetails details;
    if (mode != kConnectNew)
        details = ShowConnection(mode);
    if (mode == kConnectValue && details.table.empty())
        details.table = kPressRefresh;
    EnableConnectionFields(details);
    fConnectionString(details);
    return details;
}

ConnectionFields EnabledConnectionFields(const ConnectionDetails& details) {
    const bool isJet = details.dbmsType == kDbmsJet;
    ConnectionFields fields;
    fields.dsn = details.useODBC;
    fields.mdbFile = !details.useODBC && isJet;
    fields.server = !details.useODBC;
    fields.database = details.useODBC ? details.dbmsType != kDbmsOracle : !isJet;
    fields.owner = !isJet;
    fields.ignorePrefixes = details.protocol == 'D';
    fields.connectionString = !details.useDefaultString;
    fields.dataLink = !details.useDefaultString && details.protocol == 'A';
    return fields;
}

void EnableConnectionFields(ConnectionDetails& details) {
    const ConnectionFields enabled = EnabledConnectionFields(details);
    const auto clearUnless = [](bool isEnabled, std::string& field) {
        if (!isEnabled)
            field.clear();
    };
    clearUnless(enabled.dsn, details.dsn);
    clearUnless(enabled.mdbFile, details.mdbFile);
    clearUnless(enabled.server, details.server);
    clearUnless(enabled.database, details.database);
    clearUnless(enabled.owner, details.owner);
    clearUnless(enabled.ignorePrefixes, details.ignoreTablePrefix);
    clearUnless(enabled.ignorePrefixes, details.ignoreOwnerPrefix);
}

void TypeField(ConnectionDetails& details, std::string ConnectionDetails::*field, std::string_view text) {
    details.*field = text;
    if (HasConnectionString(details))
        fConnectionString(details);
}

void ChooseDBMS(ConnectionDetails& details, std::string_view dbms) {
    details.dbmsType = dbms;
    ChooseADO(details);
}

void ChooseADO(ConnectionDetails& details) {
    details.protocol = 'A';
    EnableConnectionFields(details);
    fConnectionString(details);
}

void ChooseDAO(ConnectionDetails& details) {
    details.protocol = 'D';
    EnableConnectionFields(details);
    fConnectionString(details);
    SetPrefixDefaults(details);
}

void ChooseAccess(ConnectionDetails& details, bool useODBC) {
    details.useODBC = useODBC;
    EnableConnectionFields(details);
    fConnectionString(details);
}

void ChooseConnectionString(ConnectionDetails& details, bool useDefault) {
    details.useDefaultString = useDefault;
    fConnectionString(details);
}

void SetPrefixDefaults(ConnectionDetails& details) {
    const bool ownersOfSystem = details.dbmsType == kDbmsDB2 || details.dbmsType == kDbmsOracle;
    details.ignoreOwnerPrefix = ownersOfSystem ? "sys" : "";
    details.ignoreTablePrefix = details.dbmsType == kDbmsJet      ? "msys"
                                : details.dbmsType == kDbmsOracle ? ""
                                                                  : "sys";
}

void CopyConnection(const ConnectionDetails& from, ConnectionDetails& form) {
    ConnectionDetails copy = from;
    copy.schemaName = form.schemaName;
    copy.schemaDescription = form.schemaDescription;
    if (copy.dbmsType.empty())
        copy.dbmsType = kDbmsJet;
    EnableConnectionFields(copy);
    fConnectionString(copy);
    form = std::move(copy);
}

ConnectionGap FindConnectionGap(const ConnectionDetails& details) {
    if (details.table.empty() || details.table == kPressRefresh) {
        platform::ShowExclamation("Please select a table");
        return ConnectionGap::Table;
    }
    if (details.column.empty()) {
        platform::ShowExclamation("Please select a column");
        return ConnectionGap::Column;
    }
    return ConnectionGap::None;
}

}  // namespace vellumark
