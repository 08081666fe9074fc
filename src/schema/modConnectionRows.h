#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/modConnectionDetails.h"

// Rows of [Database Connection]: a schema's Source and Target, and those of Value Sources.
namespace vellumark {

// What each kind of connection is called.
std::string SourceDescription(const ConnectionDetails& details);
std::string TargetDescription(const ConnectionDetails& details);
std::string ValueDescription(const ConnectionDetails& details);

int NextConnectionId();
std::optional<ConnectionDetails> ReadConnection(int id);
void AddConnection(int id, const ConnectionDetails& details);
// Throws kNoCurrentRecord when there is no such row.
void UpdateConnection(int id, const ConnectionDetails& details);

struct ConnectionEntry {
    int id = 0;
    ConnectionDetails details;
};
// All rows, by description and then by Id.
std::vector<ConnectionEntry> ListConnections();

// The Target of a schema that was not read from a database waits to be told where it is.
void fCreateTargetPlaceholder(int id, std::string_view schemaName);
bool IsToBeConfigured(const ConnectionDetails& details);

// What the connection screen shows of the current schema's Target or, for "Value", of ValueConnectionId; a
// new record where no row is stored.
ConnectionDetails ShowConnection(std::string_view kind);
// Stores what the screen holds as that connection, under a description of its own; a new "Value" row becomes
// ValueConnectionId. False behind a message.
bool fSaveConnection(std::string_view kind, ConnectionDetails details);

}  // namespace vellumark
