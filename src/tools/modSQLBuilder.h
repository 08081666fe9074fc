#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/row_store.h"
#include "schema/modDatabaseConnection.h"

// What the SQL builder offers and how it runs a text.
namespace vellumark {

inline constexpr std::string_view kCrLfWord = "<CrLf>";
inline constexpr std::string_view kSpaceWord = "<Space>";

// The lists of words, in the order shown.
std::span<const std::string_view> SQLStatementWords();
std::span<const std::string_view> SQLOperators();
std::span<const std::string_view> SQLFunctions();

// What an operator puts into the text: a line feed for kCrLfWord, a blank for kSpaceWord, else itself.
std::string_view OperatorText(std::string_view word);

struct BuilderTable {
    int id = 0;
    std::string name;
    std::string shown;  // with the owner, when it has one
};
// Of the current schema, by name. Both throw platform::Error.
std::vector<BuilderTable> BuilderTables();
std::vector<std::string> BuilderColumns(int tableId);

// Names the database of a connection for people, without a password.
std::string DatabaseText(const ConnectionDetails& details);

// A condition with "where " before it, unless it starts so.
std::string WithWhere(std::string_view condition);
// The condition for its owner: empty when nothing but "where" is there.
std::string WithoutBareWhere(std::string_view text);

// The line that a row makes among the results: each field with a blank behind it, 1000 fields at most.
std::string ResultLine(const platform::RowStore::Fields& row);

// The folder of [Options] for SQL files.
std::string SQLFolder();
// The text of an SQL file, or nothing behind a message.
std::optional<std::string> fLoadSQLFile(const std::string& path);
// Asks before it replaces a file. Lines end with CR LF there.
bool fSaveSQLFile(const std::string& path, std::string_view text);

// The connection of ConnectMode for one text: that which is open, or one opened for it when [Options] allow,
// which is closed at the end. Not open behind a message.
class SQLConnection {
 public:
    SQLConnection();
    ~SQLConnection();
    SQLConnection(const SQLConnection&) = delete;
    SQLConnection& operator=(const SQLConnection&) = delete;

    bool IsOpen() const { return open_; }
    char Protocol() const { return protocol_; }

 private:
    bool Open();

    bool wasOpen_;
    char protocol_;
    bool open_;
};

}  // namespace vellumark
