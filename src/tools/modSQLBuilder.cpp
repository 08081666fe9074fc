#include "tools/modSQLBuilder.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

#include "platform/connection_string.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/output_file.h"
#include "platform/text.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr auto kStatementWords = std::to_array<std::string_view>({"AND",
                                                                  "ASC",
                                                                  "BETWEEN",
                                                                  "DELETE FROM",
                                                                  "DELETE",
                                                                  "DESC",
                                                                  "FROM",
                                                                  "GROUP BY",
                                                                  "HAVING",
                                                                  "IN",
                                                                  "INSERT INTO",
                                                                  "LIKE",
                                                                  "NOT",
                                                                  "OR",
                                                                  "ORDER BY",
                                                                  "SELECT * FROM",
                                                                  "SELECT count(*) FROM",
                                                                  "SELECT",
                                                                  "SET",
                                                                  "UPDATE",
                                                                  "VALUES",
                                                                  "WHERE"});

constexpr auto kOperators = std::to_array<std::string_view>(
    {kCrLfWord, kSpaceWord, "!=", "-", "(",  ")", "*", ",",  ".",  "/", ":", ";",
     "[",       "\\",       "]",  "|", "||", "+", "<", "<=", "<>", "=", ">", ">="});

constexpr auto kFunctions =
    std::to_array<std::string_view>({"AVG", "COUNT", "LOWER", "MAX", "MIN", "NULL", "PERCENT", "STDDEV",
                                     "SUM", "sysdate", "TO_CHAR", "TO_DATE", "TOP", "UPPER", "VARIANCE"});

constexpr std::size_t kMostFields = 1000;
constexpr std::string_view kWhere = "where ";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string WithOwner(const dao::Recordset& table) {
    const std::string owner = table.Text("Owner");
    return owner.empty() ? table.Text("Name") : owner + "." + table.Text("Name");
}

std::string PlaceOf(const ConnectionDetails& details) {
    for (const std::string* part : {&details.mdbFile, &details.dsn})
        if (!part->empty())
            return *part;
    if (details.server.empty() || details.database.empty())
        return details.server + details.database;
    return details.server + ", " + details.database;
}

}  // namespace

std::span<const std::string_view> SQLStatementWords() {
    return kStatementWords;
}

std::span<const std::string_view> SQLOperators() {
    return kOperators;
}

std::span<const std::string_view> SQLFunctions() {
    return kFunctions;
}

std::string_view OperatorText(std::string_view word) {
    if (word == kCrLfWord)
        return "\n";
    return word == kSpaceWord ? " " : word;
}

std::vector<BuilderTable> BuilderTables() {
    const RepositoryScope repository;
    std::vector<BuilderTable> tables;
    dao::Recordset rows = RepositoryDatabase.OpenRecordset(
        "select * from [Table] where [FK DBS Id] = ? order by [Name] asc", {CurrentDBSId});
    for (; !rows.IsEOF(); rows.MoveNext())
        tables.push_back({rows.Long("Id"), rows.Text("Name"), WithOwner(rows)});
    return tables;
}

std::vector<std::string> BuilderColumns(int tableId) {
    const RepositoryScope repository;
    std::vector<std::string> names;
    dao::Recordset rows = RepositoryDatabase.OpenRecordset(
        "select * from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? order by [Name] asc",
        {CurrentDBSId, tableId});
    for (; !rows.IsEOF(); rows.MoveNext())
        names.push_back(rows.Text("Name"));
    return names;
}

std::string DatabaseText(const ConnectionDetails& details) {
    std::string place = PlaceOf(details);
    if (place.empty())
        place = platform::MaskPasswords(details.connectionString);
    const std::string protocol = details.protocol == 'D' ? "DAO" : "ADO";
    return details.dbmsType + " (" + protocol + ")" + (place.empty() ? "" : ": " + place);
}

std::string WithWhere(std::string_view condition) {
    const bool hasWhere = platform::StartsWithIgnoringCase(condition, kWhere);
    return std::string(hasWhere ? "" : kWhere).append(condition);
}

std::string WithoutBareWhere(std::string_view text) {
    const bool bare = platform::EqualsIgnoringCase(platform::Trim(text), platform::Trim(kWhere));
    return std::string(bare ? "" : text);
}

std::string ResultLine(const platform::RowStore::Fields& row) {
    std::string line;
    const std::size_t count = std::min(row.size(), kMostFields);
    for (std::size_t field = 0; field < count; ++field)
        line.append(row[field].value_or("")).append(" ");
    return line;
}

std::string SQLFolder() {
    try {
        const RepositoryScope repository;
        return dao::ToText(RepositoryDatabase.Lookup("select [Dir SQL] from [Options]"));
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the options", error);
        return {};
    }
}

std::optional<std::string> fLoadSQLFile(const std::string& path) {
    const std::string place = platform::PlatformPath(path);
    std::ifstream file(place, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!platform::FileExists(place) || !file || file.bad()) {
        platform::ShowExclamation("Cannot open the file: " + path);
        return std::nullopt;
    }
    if (text.starts_with(kByteOrderMark))
        text.erase(0, kByteOrderMark.size());
    return text;
}

bool fSaveSQLFile(const std::string& path, std::string_view text) {
    if (!fFileReplaceOK(path))
        return false;
    try {
        platform::OutputFile file(platform::PlatformPath(path));
        file.Buffer() = platform::Replace(platform::Replace(text, "\r\n", "\n"), "\n", "\r\n");
        file.Close();
        return true;
    } catch (const platform::Error& error) {
        return platform::Refuse("Cannot write the file: " + path + "\n" + error.Line());
    }
}

SQLConnection::SQLConnection()
    : wasOpen_(TargetConnectionState != 'D'), protocol_(DatabaseProtocol), open_(Open()) {}

SQLConnection::~SQLConnection() {
    if (open_ && !wasOpen_)
        CloseTargetConnection();
}

bool SQLConnection::Open() {
    if (!wasOpen_ && !AutoConnect)
        return platform::Refuse("Please connect to the target database.");
    return fDatabase_Connect_Main(protocol_, wasOpen_);
}

}  // namespace vellumark
