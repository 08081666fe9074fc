#pragma once

#include <string>
#include <vector>

#include "platform/dao/database.h"

// The tables of the two stores, and the making of stores where none are yet.
namespace vellumark {

inline constexpr std::string_view kRepositoryPassword = "quillfern";
inline constexpr std::string_view kRepositoryConnect = ";pwd=quillfern";

// Makes the Repository with all tables and no rows.
void CreateRepository(const std::string& path);

// Makes the Values database with all tables and its starting content.
void CreateValuesDatabase(const std::string& path);

// Makes what is missing of the two stores and the folder of Database schemas that the session names, with
// their folders. Returns the paths made. Throws platform::Error when something can't be made.
std::vector<std::string> CreateMissingStores();

// Writes the user's own settings file, with the stores beside it, when it is missing; true when it was made.
bool CreateUserSettings(const std::string& path);

}  // namespace vellumark
