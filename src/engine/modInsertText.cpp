#include "engine/modInsertText.h"

#include <fstream>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "repository/fileComments.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

bool IsFromSisterTool() {
    return CurrentDBSSource == 'T' || CurrentDBSSource == 'R';
}

}  // namespace

void CommentHeader(std::string& out, TargetFormat format) {
    if (IsFromSisterTool())
        return;
    out.append(kGeneratedByComment).append(VersionString).append(" on ");
    out.append(platform::LocalNow()).append(kLineEnd);
    out.append(kTargetFormatComment).append(TargetFormatName(format)).append(kLineEnd);
}

void CopySQLHeaderFile(platform::OutputFile& out, TargetFormat format, const RunOptions& options) {
    if (format == TargetFormat::Delimited || IsFromSisterTool() || options.sqlHeaderFile.empty())
        return;
    const std::string path = platform::PlatformPath(options.sqlHeaderFile);
    std::ifstream header(path, std::ios::binary);
    if (!header || !platform::FileExists(path)) {
        platform::ShowExclamation("Cannot open the SQL Header File: " + options.sqlHeaderFile +
                                  "\n\nPlease check the settings in Options.");
        return;
    }
    for (std::string line; std::getline(header, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        out.Buffer().append(line).append(kLineEnd);
        out.WriteWhenFull();
    }
}

std::string QualifiedTableName(const RunOptions& options, std::string_view owner, std::string_view name) {
    std::string_view prefix;
    if (options.codeDatabaseOwner == "Y")
        prefix = owner;
    else if (options.codeDatabaseOwner == "O")
        prefix = options.databaseOwner;
    std::string qualified(prefix);
    if (!qualified.empty())
        qualified += '.';
    return qualified.append(name);
}

std::string InsertStart(TargetFormat format, std::string_view qualifiedName) {
    std::string start;
    if (format != TargetFormat::Delimited) {
        const FormatWords& words = WordsOf(format);
        start.append(words.insertHead).append(qualifiedName).append(words.nameSuffix);
    }
    return start.append(kLineEnd).append("(").append(kLineEnd);
}

std::string ListedColumn(TargetFormat format, std::string_view name) {
    const bool brackets = format == TargetFormat::Jet;
    return (brackets ? "[" : "") + std::string(name) + (brackets ? "]" : "");
}

std::optional<LiteralAffixes> InsertValue(TargetFormat format, const ColumnPlan& column) {
    if (!column.dataType) {
        platform::ShowCritical("Function 'InsertValue' format '" + column.dataTypeName +
                               "' not fully supported");
        return std::nullopt;
    }
    if (format == TargetFormat::Delimited && column.dataType != DataType::Blob)
        return LiteralAffixes{column.quote, column.quote};
    return LiteralAffixesFor(format, *column.dataType);
}

bool InsertEndofStatement(std::string& out, TargetFormat format) {
    if (format == TargetFormat::Delimited) {
        platform::ShowCritical("Function 'InsertEndofStatement' " + std::string(TargetFormatName(format)) +
                               " not fully supported");
        return false;
    }
    out.append(WordsOf(format).terminator).append(kLineEnd);
    return true;
}

}  // namespace vellumark
