#pragma once

#include <string>
#include <string_view>

// A Database schema as a whole: its row, folder, connections, tables and Scenarios.
namespace vellumark {

// The schema that OpenDatabaseSchema opens next; 0 for none.
inline int SelectedSchemaId = 0;

// The folder of the schema of that name.
std::string SchemaFolder(std::string_view name);

// Opens the schema of SelectedSchemaId in place of the open one.
bool OpenDatabaseSchema();

// Selects the schema of that Id, notes the time and opens it, connecting to its Target when the options say
// so.
bool OpenSelectedSchema(int schemaId);

// Brings what is shown of the open schema up to date with its rows, which another program may have changed.
// The selection stays if it can; a schema that has gone is closed.
void RereadDatabaseSchema();

// Closes the open schema and its Target Connection; does nothing else when none is open.
void CloseDatabaseSchema();

// Deletes the schema of CurrentDBSId with all that is under it, after a question if `ask`.
bool fDeleteSchema(bool ask);

}  // namespace vellumark
