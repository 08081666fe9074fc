#pragma once

#include <string>

#include "schema/modCOOLGenModel.h"
#include "schema/modConnectionDetails.h"

// Making a Database schema.
namespace vellumark {

// Where the definition comes from, with the codes of [Database].[Source].
enum class NewSchemaKind : char {
    Connection = 'D',
    COOLGen = 'C',
    Manual = 'M',
    CaseWeaver = 'T',
    SheetWeaver = 'R',
};

// What the screen of a kind holds.
struct NewSchemaDetails {
    NewSchemaKind kind = NewSchemaKind::Connection;
    std::string name;                   // an empty one is asked for when the kind is Manual
    std::string description = {};       // kReadOnlyWord: the schema's folder is there, and stays as it is
    ConnectionDetails connection = {};  // of the kind Connection, named as the schema here
    COOLGenDetails model = {};          // of the kind COOLGen
    std::string sisterFile = {};        // of the kinds CaseWeaver and SheetWeaver
};

// Makes a new schema of its kind and leaves it open: tables and columns are captured, the System Scenario and
// the two default Scenarios are made; a Manual one has no tables and the System Scenario alone. False behind
// a message; nothing of the schema is left then, but for a folder that was there before.
bool fNewSchema(NewSchemaDetails details);

// Asks for the name of a schema; empty when the user gave none.
std::string fRenameSchemaPrompt();

}  // namespace vellumark
