#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/columnPlan.h"
#include "engine/modTargetFormat.h"
#include "engine/runOptions.h"
#include "platform/output_file.h"

// The words around values in statement files and delimited files.
namespace vellumark {

inline constexpr std::string_view kLineEnd = "\r\n";

// The lines at the head of a file; none for a schema that a sister tool's file brought.
void CommentHeader(std::string& out, TargetFormat format);

// Copies the user's own head of SQL files. A file that can't be read is told of and left out.
void CopySQLHeaderFile(platform::OutputFile& out, TargetFormat format, const RunOptions& options);

std::string QualifiedTableName(const RunOptions& options, std::string_view owner, std::string_view name);

// The start of a column list. Delimited text has no words for a statement, so that a database refuses it.
std::string InsertStart(TargetFormat format, std::string_view qualifiedName);

// A column's name as it stands in the list.
std::string ListedColumn(TargetFormat format, std::string_view name);

// What stands around the column's values; nothing, behind a message, for a data type that nobody knows.
std::optional<LiteralAffixes> InsertValue(TargetFormat format, const ColumnPlan& column);

// False behind a message for the format that has no statements.
bool InsertEndofStatement(std::string& out, TargetFormat format);

}  // namespace vellumark
