#pragma once

#include <string>
#include <string_view>

#include "schema/modConnectionDetails.h"

// The rules of the connection screen.
namespace vellumark {

// Stands in the box of tables until they have been read.
inline constexpr std::string_view kPressRefresh = "Press Refresh to select a table";

// What the screen is in a mode.
struct ConnectionScreen {
    std::string title;
    std::string_view instructions;
    bool namesSchema = false;  // Name and Description can be typed
    bool picksColumn = false;  // table and column, and Refresh, are there
    bool viewsData = false;    // View Data is there
};
// `table` and `column` are those that a Value Source serves.
ConnectionScreen DescribeConnectionScreen(std::string_view mode, std::string_view table = "",
                                          std::string_view column = "");

// What the screen holds as it opens in a mode.
ConnectionDetails LoadConnectionForm(std::string_view mode);

// Which fields can be used. The browse buttons go with their fields, both prefixes go together.
struct ConnectionFields {
    bool dsn = false;
    bool mdbFile = false;
    bool server = false;
    bool database = false;
    bool owner = false;
    bool ignorePrefixes = false;
    bool connectionString = false;  // else it is locked but shown
    bool dataLink = false;

    bool operator==(const ConnectionFields&) const = default;
};
ConnectionFields EnabledConnectionFields(const ConnectionDetails& details);
// Clears the fields that can't be used.
void EnableConnectionFields(ConnectionDetails& details);

// Takes what is being typed into a field of the screen, without the messages of a string that can't be built.
void TypeField(ConnectionDetails& details, std::string ConnectionDetails::*field, std::string_view text);

// The screen's options, with what each does to the other fields.
void ChooseDBMS(ConnectionDetails& details, std::string_view dbms);
void ChooseADO(ConnectionDetails& details);
void ChooseDAO(ConnectionDetails& details);
void ChooseAccess(ConnectionDetails& details, bool useODBC);
void ChooseConnectionString(ConnectionDetails& details, bool useDefault);

// The Ignore prefixes that go with the DBMS under DAO.
void SetPrefixDefaults(ConnectionDetails& details);

// Fills the screen with the fields of another connection; the schema's name and description stay.
void CopyConnection(const ConnectionDetails& from, ConnectionDetails& form);

enum class ConnectionGap { None, Table, Column };
// What a connection of a Value Source still lacks, after its message.
ConnectionGap FindConnectionGap(const ConnectionDetails& details);

}  // namespace vellumark
