#pragma once

#include <string>
#include <vector>

namespace vellumark {

struct SchemaEntry {
    int id = 0;
    std::string name;
    std::string description;
    std::string source;  // where its definition came from, in words
    std::string model;
    std::string lastAccessed;
};

// The Database schemas, the one opened last first.
std::vector<SchemaEntry> ListSchemas();

// Deletes a schema after a question; the open schema is closed before.
bool fDeleteSelectedSchema(int schemaId);

}  // namespace vellumark
