#include "tools/modLoadFile.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/output_file.h"
#include "repository/modOptionsMaintenance.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::string_view kAllFiles = "|All files (*.*)|*.*";
constexpr std::string_view kLineEnd = "\r\n";

struct LoaderFile {
    TargetFormat format;
    std::string_view name;
    std::string_view filter;
};

constexpr std::array kLoaderFiles = {
    LoaderFile{TargetFormat::Jet, "schema.ini", "schema.ini |schema.ini|ini (*.ini)|*.ini"},
    LoaderFile{TargetFormat::Oracle, "LoadFile.ctl", "ctl (*.ctl)|*.ctl|txt (*.txt)|*.txt"},
    LoaderFile{TargetFormat::SqlServer, "LoadFile.fmt", "fmt (*.fmt)|*.fmt|txt (*.txt)|*.txt"},
    LoaderFile{TargetFormat::Db2, "LoadFile.txt", "txt (*.txt)|*.txt"},
};

const LoaderFile* LoaderFileOf(std::string_view format) {
    const std::optional<TargetFormat> wanted = ParseTargetFormat(format);
    const auto found = std::ranges::find_if(
        kLoaderFiles, [&](const LoaderFile& file) { return wanted && file.format == *wanted; });
    return found == kLoaderFiles.end() ? nullptr : &*found;
}

struct LoadColumn {
    std::string name;
    std::optional<DataType> type;  // nothing for a word that is no data type
    int size = 0;
};

struct LoadTable {
    std::string name;
    std::vector<LoadColumn> columns;
};

std::string TableNameOf(int ruleId) {
    return dao::ToText(RepositoryDatabase.Lookup(
        "select [Name] from [Table] where [FK DBS Id] = ? and [Id] in (select [FK TAB Id] from [TSO Insert "
        "Table Rule] where [FK DBS Id] = ? and [Id] = ? and [FK TSO Id] = ?)",
        {CurrentDBSId, CurrentDBSId, ruleId, CurrentTSOId}));
}

std::vector<LoadColumn> ReadLoadColumns(int ruleId) {
    dao::Recordset rows = RepositoryDatabase.OpenRecordset(
        "select c.[Name], c.[Vellumark Data Type], c.[Vellumark Size] from [TSO Insert Column Rule] r"
        " join [Column] c on c.[FK DBS Id] = r.[FK DBS Id] and c.[FK TAB Id] = r.[FK TAB Id]"
        " and c.[Id] = r.[FK COL Id]"
        " where r.[FK DBS Id] = ? and r.[FK TTR Id] = ? and r.[FK TSO Id] = ? and r.[Flag Exclude] = False"
        " order by r.[Sort Order] asc",
        {CurrentDBSId, ruleId, CurrentTSOId});
    std::vector<LoadColumn> columns;
    for (; !rows.IsEOF(); rows.MoveNext())
        columns.push_back({rows.Text("Name"), ParseDataType(rows.Text("Vellumark Data Type")),
                           rows.Long("Vellumark Size")});
    return columns;
}

std::string Line(std::string_view text) {
    return std::string(text).append(kLineEnd);
}

// A text for each column in their order, with a separator between.
template <class TextOfColumn>
std::string Joined(std::size_t count, std::string_view separator, const TextOfColumn& textOf) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0)
            text += separator;
        text += textOf(i);
    }
    return text;
}

std::string SchemaIniWord(const LoadColumn& column) {
    const std::string size = std::to_string(column.size);
    switch (column.type.value_or(DataType::Character)) {
        case DataType::Date:
        case DataType::Time:
        case DataType::TimeStamp:
            return "datetime";
        case DataType::Integer:
        case DataType::TinyInteger:
            return "integer";
        case DataType::LongInteger:
        case DataType::BigInteger:
            return "long width " + size;
        case DataType::Single:
            return "single";
        case DataType::Double:
            return "double";
        case DataType::Currency:
            return "currency";
        case DataType::Variant:
        case DataType::Blob:
            return "byte";
        case DataType::Boolean:
            return "bit";
        default:
            return "char width " + size;
    }
}

std::string JetLines(const LoadTable& table, const std::string& delimiter) {
    std::string lines = Line("[EnterYourDataFileHere]") + Line("ColNameHeader = False") +
                        Line("Format = Delimited(" + delimiter + ")") + Line("CharacterSet = OEM");
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        lines += Line("Col" + std::to_string(i + 1) + "=\"" + table.columns[i].name + "\" " +
                      SchemaIniWord(table.columns[i]));
    return lines;
}

std::string OracleLines(const LoadTable& table, const std::string& delimiter) {
    std::string lines = Line("OPTIONS (direct=true)") + Line("LOAD DATA") +
                        Line("INFILE 'EnterYourDataFileHere'") + Line("BADFILE 'EnterYourBadFileHere'") +
                        Line("APPEND") + Line("INTO TABLE " + table.name) +
                        Line("FIELDS TERMINATED BY \"" + delimiter + "\"") + Line("(");
    if (!table.columns.empty())
        lines += Line(
            Joined(table.columns.size(), Line(","), [&](std::size_t i) { return table.columns[i].name; }) +
            ")");
    return lines;
}

// All are as wide as the widest.
std::string_view BcpWord(std::optional<DataType> type) {
    switch (type.value_or(DataType::Character)) {
        case DataType::Date:
        case DataType::Time:
        case DataType::TimeStamp:
            return "SQLDATETIME";
        case DataType::Integer:
            return "SQLINT2    ";
        case DataType::LongInteger:
        case DataType::BigInteger:
        case DataType::Variant:
            return "SQLINT4    ";
        case DataType::Single:
        case DataType::Double:
            return "SQLDECIMAL ";
        case DataType::Currency:
            return "SQLMONEY   ";
        case DataType::TinyInteger:
            return "SQLINT1    ";
        case DataType::Boolean:
            return "SQLBIT     ";
        default:
            return "SQLCHAR    ";
    }
}

std::string SqlServerLines(const LoadTable& table, const std::string& delimiter) {
    std::string lines = Line("6.5");
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const LoadColumn& column = table.columns[i];
        const std::string place = std::to_string(i + 1);
        if (i == 0)
            lines += Line(std::to_string(table.columns.size()));
        lines.append(place).append("\t").append(BcpWord(column.type)).append("\t0\t");
        lines.append(std::to_string(column.size)).append("\t\"").append(delimiter).append("\"\t");
        lines += Line(place + "\t" + column.name);
    }
    return lines;
}

// Without columns the statement still is one: it takes the fields in the table's order.
std::string Db2Lines(const LoadTable& table) {
    const std::size_t count = table.columns.size();
    std::string lines = Line("LOAD FROM [EnterYourDataFileHere] OF DEL");
    if (count > 0)
        lines += Line("METHOD P (" + Joined(count, ",", [](std::size_t i) { return std::to_string(i + 1); }) +
                      ")");
    lines += Line("INSERT INTO " + table.name);
    if (count > 0)
        lines += Line("(" + Joined(count, ",", [&](std::size_t i) { return table.columns[i].name; }) + ")");
    return lines;
}

std::string LinesOf(const LoadTable& table, TargetFormat format, const std::string& delimiter) {
    switch (format) {
        case TargetFormat::Jet:
            return JetLines(table, delimiter);
        case TargetFormat::Oracle:
            return OracleLines(table, delimiter);
        case TargetFormat::SqlServer:
            return SqlServerLines(table, delimiter);
        default:
            return Db2Lines(table);
    }
}

// Nothing, behind a message, when the rule is gone.
std::optional<LoadTable> ReadLoadTable(int ruleId) {
    const RepositoryScope repository;
    LoadTable table{TableNameOf(ruleId), ReadLoadColumns(ruleId)};
    if (!table.name.empty())
        return table;
    platform::ShowExclamation("There is no Table rule " + std::to_string(ruleId) + " in this Scenario.");
    return std::nullopt;
}

// Nothing behind a message.
std::unique_ptr<platform::OutputFile> OpenLoadFile(const std::string& path) {
    try {
        return std::make_unique<platform::OutputFile>(platform::PlatformPath(path));
    } catch (const platform::Error&) {
        platform::ShowExclamation("Cannot open the file: " + path);
        return nullptr;
    }
}

bool fDelimiterOK(const LoadFile& file) {
    // The DB2 statement names no delimiter.
    if (!file.delimiter.empty() || file.format == TargetFormat::Db2)
        return true;
    return platform::Refuse("Please enter the delimiter that is used in the delimited text data file");
}

}  // namespace

LoadFileDefaults ReadLoadFileDefaults(int ruleId) {
    LoadFileDefaults defaults;
    defaults.format = FillDBMSList("CreateLoadFile").front();
    try {
        const RepositoryScope repository;
        defaults.delimiter = ReadOptions().outputDelimiter;
        defaults.tableName = TableNameOf(ruleId);
        const std::string target = dao::ToText(RepositoryDatabase.Lookup(
            "select c.[Type] from [Database] d join [Database Connection] c on c.[Id] = d.[FK CON Id Target]"
            " where d.[Id] = ?",
            {CurrentDBSId}));
        if (LoaderFileOf(target) != nullptr)
            defaults.format = target;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the Table rule", error);
    }
    return defaults;
}

bool fSetDefaultFileName(std::string_view format, std::string& path) {
    const LoaderFile* file = LoaderFileOf(format);
    if (file == nullptr)
        return false;
    try {
        const std::string folder = ReadOptions().dirOutputText;
        path = folder.empty() ? file->name : JoinPath(platform::PlatformPath(folder), file->name);
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the options", error);
        return false;
    }
}

std::string LoadFileFilter(std::string_view format) {
    const LoaderFile* file = LoaderFileOf(format);
    return std::string(file == nullptr ? kLoaderFiles.back().filter : file->filter).append(kAllFiles);
}

bool fCreateLoadFile(const LoadFile& file) {
    try {
        if (!fDelimiterOK(file))
            return false;
        const std::optional<LoadTable> table = ReadLoadTable(file.ruleId);
        if (!table || !fFileReplaceOK(file.path))
            return false;
        const std::unique_ptr<platform::OutputFile> output = OpenLoadFile(file.path);
        if (output == nullptr)
            return false;
        output->Buffer() = LinesOf(*table, file.format, file.delimiter);
        output->Close();
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("writing the load file", error);
        return false;
    }
}

}  // namespace vellumark
