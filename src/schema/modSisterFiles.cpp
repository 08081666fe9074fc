#include "schema/modSisterFiles.h"

#include <array>
#include <filesystem>
#include <vector>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "schema/modFieldFile.h"
#include "schema/modFormatCodes.h"

namespace vellumark {

namespace {

using Tables = std::vector<SchemaTable>;

constexpr std::array kFormats = {
    FormatCode{"9", DataType::Double, true, 8},     FormatCode{"T", DataType::Time, false, 8},
    FormatCode{"P", DataType::TimeStamp, false, 8}, FormatCode{"D", DataType::Date, false, 8},
    FormatCode{"C", DataType::TimeStamp, false, 8}, FormatCode{"8", DataType::TimeStamp, false, 8},
};

struct SisterTool {
    std::string name;
    SisterFileHead (*readHead)(FieldFile& file);
    Tables (*readTables)(FieldFile& file, const SisterFileHead& head);
};

// The text from the character at `first` to the last but one.
std::string DatabaseFileIn(FieldFile& file, std::size_t first) {
    const std::string_view line = file.ReadLine();
    const std::size_t count = platform::CharacterCount(line);
    if (count < first)
        file.Fail(platform::kInvalidProcedureCall, "Invalid procedure call or argument");
    return platform::PlatformPath(platform::MiddleCharacters(line, first, count - first));
}

std::string NameInLine(FieldFile& file) {
    file.ReadLine();
    return std::string(file.Field(2));
}

SisterFileHead CaseWeaverHead(FieldFile& file) {
    SisterFileHead head;
    file.SkipLines(1);
    head.modelName = "Case Weaver CAB: " + NameInLine(file);
    file.SkipLines(2);
    head.databaseFile = DatabaseFileIn(file, 11);
    file.SkipLines(2);
    return head;
}

SisterFileHead SheetWeaverHead(FieldFile& file) {
    SisterFileHead head;
    file.SkipLines(1);
    head.modelName = "Sheet Weaver EAB: " + NameInLine(file);
    file.SkipLines(2);
    head.databaseFile = DatabaseFileIn(file, 12);
    head.style = SheetWeaverStyle(NameInLine(file));
    head.table = NameInLine(file);
    file.SkipLines(2);
    return head;
}

SchemaTable& AddTable(Tables& tables, std::string name, std::string_view entity) {
    return tables.emplace_back(SchemaTable{std::move(name), "", {}, std::string(entity)});
}

// The attribute stands in `attributeField` and the format behind it.
SchemaColumn& AddColumn(SchemaTable& table, std::string name, const FieldFile& line,
                        std::size_t attributeField) {
    SchemaColumn column;
    column.name = std::move(name);
    column.attribute = line.Field(attributeField);
    SetFormat(column, kFormats, line, attributeField + 1);
    column.sortOrder = static_cast<int>(table.columns.size()) + 1;
    return table.columns.emplace_back(std::move(column));
}

void AddCaseWeaverColumn(SchemaTable& table, const FieldFile& line) {
    const std::string_view column = line.Field(2);
    const std::string_view attribute = line.Field(3);
    if (column == "test_case_counter") {
        AddColumn(table, std::string(column), line, 3);
    } else if (column == attribute && column.ends_with("_id")) {
        AddColumn(table, platform::ToUpper(column), line, 3).identifier = true;
    } else {
        AddColumn(table, platform::ToUpper(column) + " " + std::string(attribute), line, 3);
    }
}

Tables CaseWeaverTables(FieldFile& file, const SisterFileHead&) {
    Tables tables;
    while (file.fNextLine()) {
        const std::string_view entity = file.Field(1);
        if (tables.empty() || tables.back().entity != entity)
            AddTable(tables, entity == "Test_Cases" ? "Test Cases" : "Test Cases " + std::string(entity),
                     entity);
        AddCaseWeaverColumn(tables.back(), file);
    }
    return tables;
}

Tables SheetWeaverTables(FieldFile& file, const SisterFileHead& head) {
    Tables tables;
    while (file.fNextLine()) {
        if (tables.empty())
            AddTable(tables, head.table, head.table);
        AddColumn(tables.front(), platform::ToUpper(file.Field(1)), file, 2);
    }
    return tables;
}

const SisterTool kCaseWeaver = {"Case Weaver", CaseWeaverHead, CaseWeaverTables};
const SisterTool kSheetWeaver = {"Sheet Weaver", SheetWeaverHead, SheetWeaverTables};

std::optional<FieldFile> Open(const SisterTool& tool, const std::string& path) {
    std::optional<FieldFile> file = OpenFieldFile(path, ' ');
    if (!file)
        platform::ShowExclamation("Please use " + tool.name + " to create the file: " + path);
    return file;
}

void ShowReadingFailure(const SisterTool& tool, const platform::Error& error) {
    platform::ShowUnexpectedError("reading " + tool.name + " file", error);
}

std::optional<SisterFileHead> ReadHead(const SisterTool& tool, const std::string& path) {
    try {
        if (std::optional<FieldFile> file = Open(tool, path))
            return tool.readHead(*file);
    } catch (const platform::Error& error) {
        ShowReadingFailure(tool, error);
    }
    return std::nullopt;
}

bool fStoreHead(const SisterFileHead& head, const std::string& databasePath) {
    dao::Recordset schema =
        RepositoryDatabase.OpenRecordset("select * from [Database] where [Id] = ?", {CurrentDBSId});
    if (schema.IsEOF())
        return platform::Refuse("Cannot open the Database identifier " + std::to_string(CurrentDBSId));
    schema.Edit();
    schema.Set("COOLGen Model Name", head.modelName);
    if (!head.style.empty())
        schema.Set("Sheet Weaver Style", head.style);
    schema.Update();
    dao::Recordset target = RepositoryDatabase.OpenRecordset(
        "select * from [Database Connection] where [Id] = ?", {schema.Long("FK CON Id Target")});
    if (target.IsEOF())
        return platform::Refuse("Cannot open the Database Connnection Target");
    target.Edit();
    target.Set("MDB File", databasePath);
    if (!head.table.empty())
        target.Set("Table", head.table);
    target.Update();
    return true;
}

bool fReadSisterFile(const SisterTool& tool, const std::string& path) {
    try {
        std::optional<FieldFile> file = Open(tool, path);
        if (!file)
            return false;
        const SisterFileHead head = tool.readHead(*file);
        const std::string folder = std::filesystem::path(platform::PlatformPath(path)).parent_path().string();
        const RepositoryScope repository;
        dao::Transaction transaction(RepositoryDatabase);
        if (!fStoreHead(head, folder.empty() ? head.databaseFile : JoinPath(folder, head.databaseFile)))
            return false;
        AddSchemaRows(RepositoryDatabase, CurrentDBSId, tool.readTables(*file, head));
        transaction.Commit();
        return true;
    } catch (const platform::Error& error) {
        ShowReadingFailure(tool, error);
        return false;
    }
}

}  // namespace

std::optional<SisterFileHead> ReadCaseWeaverHead(const std::string& path) {
    return ReadHead(kCaseWeaver, path);
}

std::optional<SisterFileHead> ReadSheetWeaverHead(const std::string& path) {
    return ReadHead(kSheetWeaver, path);
}

std::string SheetWeaverStyle(std::string_view letter) {
    if (letter == "G")
        return "GUI Report";
    return letter == "R" ? "Delimited File Reader" : std::string(letter);
}

bool fReadCaseWeaverFile(const std::string& path) {
    return fReadSisterFile(kCaseWeaver, path);
}

bool fReadSheetWeaverFile(const std::string& path) {
    return fReadSisterFile(kSheetWeaver, path);
}

}  // namespace vellumark
