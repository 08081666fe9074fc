#pragma once

#include <string>
#include <string_view>

// One-line texts for what a Column rule takes its values from, and the names and conversions in the Values
// database. A Values database that can't be read throws platform::Error.
namespace vellumark {

// " DBMS: 'Jet' MDB: 'shop.mdb'": each part that is not empty, with a blank before it. The folder of the file
// is left out.
std::string ConnectionDescription(std::string_view dbms, std::string_view dsn, std::string_view database,
                                  std::string_view mdbFile, std::string_view table, std::string_view column);

// The codes of [Value Source]; empty for an unknown one. `connection` is what ConnectionDescription gives,
// for a source in a database.
std::string ValueSourceDescription(std::string_view type, std::string_view nameAndPath, int catId,
                                   std::string_view connection = "");

// Empty when there is no single row of that Id.
std::string CategoryName(int id);
std::string ConversionCodeName(int id);

// What a code converts to, or the code itself. Needs a ValuesScope of the caller.
std::string ConversionValue(int cnvId, std::string_view code);

}  // namespace vellumark
