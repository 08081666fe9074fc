#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/process.h"
#include "repository/modVellumark.h"

// Files, folders and small texts. Paths are texts of the user: "/" and "\" both separate. Functions that
// start with f show their own message when they return false.
namespace vellumark {

// Starts the text editor and the desktop's viewer; a program without a desktop sets its own.
inline std::function<void(const std::vector<std::string>& command)> ProgramStarter = platform::StartDetached;

// A folder is no file. Shows nothing.
bool fFileExists(std::string_view path);
// Asks before an existing file is replaced. The two stores never are.
bool fFileReplaceOK(std::string_view path);
// Copies under the same name, over an older file.
bool Copy_File(std::string_view fileName, std::string_view sourceDir, std::string_view destinationDir);
// Makes the missing folders; the last part only when a separator stands behind it. Shows nothing.
bool fMakeFolderChain(std::string_view path);
// Files only, also those that are read-only. Throws platform::Error when one can't be deleted.
void DeleteFilesInFolder(std::string_view pattern, std::string_view folder);
// Throws platform::Error when the folder can't be entered.
void ChangeFolder(std::string_view path);

// The folder keeps its separator, so that both together are the path. Always true.
bool fSplitPath(std::string_view path, std::string& folder, std::string& fileName);
std::string FileNameOnly(std::string_view path);

// A part of that text.
std::string_view StripOuterCharacters(std::string_view text);
// "Name (Entity)" to "(Entity) Name" and back.
std::string SwapParenthesised(std::string_view text);

struct NumberDigits {
    int integerDigits = 0;
    int decimalDigits = 0;
};
NumberDigits GetNumberDigits(std::string_view text, char decimalPoint = DecimalPointCharacter);

// Opens the file in the editor of [Options] when the user wants that of written files, or always by `force`.
// The desktop's choice takes the place of an editor that is not installed.
void OpenFileWithEditor(std::string_view path, bool force);

// Opens the file in the program that the desktop has for its kind.
void OpenFileWithViewer(std::string_view path);

enum class HelpTopic { Contents = 1, Search = 2, HelpOnHelp = 3 };
void ShowHelp(HelpTopic what);

// Shows that page for ShowHelp; the desktop program sets its own window.
inline std::function<void(HelpTopic what, const std::string& page)> HelpViewer =
    [](HelpTopic, const std::string& page) { OpenFileWithViewer(page); };

// The file of a page of the user's guide. Throws platform::Error when it is not there.
std::string HelpPagePath(std::string_view page);

}  // namespace vellumark
