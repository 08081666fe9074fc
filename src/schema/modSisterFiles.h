#pragma once

#include <optional>
#include <string>
#include <string_view>

// Captures a schema from the file that a sister tool, Case Weaver or Sheet Weaver, writes for this system.
namespace vellumark {

// What the tools call their files.
inline constexpr std::string_view kCaseWeaverFile = "CWtoGW.txt";
inline constexpr std::string_view kSheetWeaverFile = "SWtoGWEABDef.txt";

// What the screen shows of such a file before it is read.
struct SisterFileHead {
    std::string modelName;     // "Case Weaver CAB: " or "Sheet Weaver EAB: " and the name
    std::string databaseFile;  // of the tool, beside its file
    std::string style;         // Sheet Weaver only, like the next
    std::string table;
};

// Nothing, behind a message, when there is no such file or it ends within its head.
std::optional<SisterFileHead> ReadCaseWeaverHead(const std::string& path);
std::optional<SisterFileHead> ReadSheetWeaverHead(const std::string& path);

// "GUI Report" for "G", "Delimited File Reader" for "R"; another letter as it is.
std::string SheetWeaverStyle(std::string_view letter);

// Add the current schema's rows, and point its Target to the tool's database file. A failure shows its
// message and changes nothing.
bool fReadCaseWeaverFile(const std::string& path);
bool fReadSheetWeaverFile(const std::string& path);

}  // namespace vellumark
