#include "repository/modSequentialFileServices.h"

#include <array>
#include <filesystem>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vellumark {

namespace {

constexpr std::string_view kDesktopOpener = "xdg-open";
constexpr std::string_view kDefaultEditor = "Notepad";

std::size_t LengthOfFolder(std::string_view path) {
    const std::size_t last = path.find_last_of(platform::kSeparators);
    return last == std::string_view::npos ? 0 : last + 1;
}

// The bracket that belongs to the one at the text's end, or at its beginning; npos when there is none.
std::size_t OpeningOfLast(std::string_view text) {
    int depth = 0;
    for (std::size_t at = text.size(); at-- > 0;) {
        depth += text[at] == ')' ? 1 : text[at] == '(' ? -1 : 0;
        if (depth == 0)
            return at;
    }
    return std::string_view::npos;
}

std::size_t ClosingOfFirst(std::string_view text) {
    int depth = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        depth += text[at] == '(' ? 1 : text[at] == ')' ? -1 : 0;
        if (depth == 0)
            return at;
    }
    return std::string_view::npos;
}

std::string Swapped(std::string_view text, std::size_t at) {
    const std::string_view first = platform::Trim(text.substr(0, at));
    const std::string_view second = platform::Trim(text.substr(at));
    if (first.empty() || second.empty())
        return std::string(text);
    return std::string(second) + " " + std::string(first);
}

// The words that start the editor. A name with blanks may be a program's or a program's with arguments.
std::vector<std::string> EditorCommand(const std::string& editor) {
    if (!platform::FindProgram(editor).empty())
        return {editor};
    std::vector<std::string> words = platform::SplitCommand(editor);
    if (words.empty() || platform::FindProgram(words[0]).empty())
        return {std::string(kDesktopOpener)};
    return words;
}

// The editor's text from [Options], or empty text when files are not to be opened.
std::string WantedEditor(bool force) {
    const RepositoryScope repository;
    const dao::Recordset options = RepositoryDatabase.OpenRecordset("select * from [Options]");
    if (!force && !options.Boolean("Flag Open SQL File With Editor"))
        return {};
    const std::string editor = options.Text("Editor Exe");
    return editor.empty() ? std::string(kDefaultEditor) : editor;
}

void StartWith(std::vector<std::string> command, const std::string& path) {
    // An editor may make a new file; the desktop's opener fails where nobody sees it.
    if (command[0] == kDesktopOpener && !platform::FileExists(path))
        throw platform::Error(platform::kFileNotFound, "File not found: '" + path + "'");
    std::error_code error;
    const std::string absolute = std::filesystem::absolute(path, error).string();
    command.push_back(error ? path : absolute);
    ProgramStarter(command);
}

// A store that is written over takes all schemas or all values with it.
bool IsStore(std::string_view path) {
    const std::string file = platform::PlatformPath(path);
    std::error_code error;
    return std::filesystem::equivalent(file, RepositoryPath, error) ||
           std::filesystem::equivalent(file, ValuesPath, error);
}

}  // namespace

bool fFileExists(std::string_view path) {
    return platform::FileExists(platform::PlatformPath(path));
}

bool fFileReplaceOK(std::string_view path) {
    if (path.empty())
        return platform::Refuse("Please enter name and path for the text file");
    if (IsStore(path))
        return platform::Refuse(std::string(path) + " is a store of Vellumark and cannot be replaced.");
    return !fFileExists(path) ||
           platform::AskYesNo(std::string(path) + " already exists. Do you want to replace it?");
}

bool Copy_File(std::string_view fileName, std::string_view sourceDir, std::string_view destinationDir) {
    const std::string sourceFolder = platform::PlatformPath(sourceDir);
    const std::string destinationFolder = platform::PlatformPath(destinationDir);
    if (!platform::FolderExists(sourceFolder)) {
        platform::ShowCritical(
            "Function: Copy_File, Invalid parameter value for SourceDir - Directory does not exist: " +
            std::string(sourceDir));
        return false;
    }
    if (!platform::FolderExists(destinationFolder)) {
        platform::ShowCritical(
            "Function: Copy_File, Invalid parameter value for DestinationDir - Directory does not exist" +
            std::string(destinationDir));
        return false;
    }
    const std::string source = JoinPath(sourceFolder, fileName);
    const std::string destination = JoinPath(destinationFolder, fileName);
    try {
        platform::CopyFile(source, destination);
        return true;
    } catch (const platform::Error& error) {
        platform::ShowCritical("Error copying file '" + source + "' to '" + destination + "'\n\n" +
                               error.Line());
        return false;
    }
}

bool fMakeFolderChain(std::string_view path) {
    if (path.empty() || path.ends_with(':'))
        return true;
    const std::string chain = platform::PlatformPath(path);
    try {
        for (std::size_t at = chain.find('/'); at != std::string::npos; at = chain.find('/', at + 1)) {
            const std::string folder = chain.substr(0, at == 0 ? 1 : at);
            if (!platform::FolderExists(folder))
                platform::CreateFolder(folder);
        }
    } catch (const platform::Error&) {
        return false;
    }
    return true;
}

void DeleteFilesInFolder(std::string_view pattern, std::string_view folder) {
    if (folder.empty())
        return;
    for (const std::string& file : platform::FilesIn(platform::PlatformPath(folder), pattern))
        platform::DeleteFile(file);
}

void ChangeFolder(std::string_view path) {
    platform::SetCurrentFolder(platform::PlatformPath(path));
}

bool fSplitPath(std::string_view path, std::string& folder, std::string& fileName) {
    const std::string whole(path);  // the caller may split a text into itself
    const std::size_t length = LengthOfFolder(whole);
    folder = whole.substr(0, length);
    fileName = whole.substr(length);
    return true;
}

std::string FileNameOnly(std::string_view path) {
    return std::string(path.substr(LengthOfFolder(path)));
}

std::string_view StripOuterCharacters(std::string_view text) {
    const std::size_t count = platform::CharacterCount(text);
    return count < 2 ? text : platform::MiddleCharacters(text, 2, count - 2);
}

std::string SwapParenthesised(std::string_view text) {
    if (text.starts_with('(')) {
        const std::size_t closing = ClosingOfFirst(text);
        return closing == std::string_view::npos ? std::string(text) : Swapped(text, closing + 1);
    }
    if (text.ends_with(')')) {
        const std::size_t opening = OpeningOfLast(text);
        return opening == std::string_view::npos ? std::string(text) : Swapped(text, opening);
    }
    return std::string(text);
}

NumberDigits GetNumberDigits(std::string_view text, char decimalPoint) {
    NumberDigits digits;
    bool behindPoint = false;
    for (const char c : text) {
        if (c == decimalPoint)
            behindPoint = true;
        else if (c >= '0' && c <= '9')
            ++(behindPoint ? digits.decimalDigits : digits.integerDigits);
    }
    return digits;
}

void OpenFileWithEditor(std::string_view path, bool force) {
    try {
        const std::string editor = WantedEditor(force);
        if (!editor.empty())
            StartWith(EditorCommand(editor), platform::PlatformPath(path));
    } catch (const platform::Error& error) {
        platform::ShowExclamation("Cannot open the file in the text editor: " + std::string(path) + "\n\n" +
                                  error.Line());
    }
}

void OpenFileWithViewer(std::string_view path) {
    try {
        StartWith({std::string(kDesktopOpener)}, platform::PlatformPath(path));
    } catch (const platform::Error& error) {
        platform::ShowExclamation("Cannot open the file in the viewer: " + std::string(path) + "\n\n" +
                                  error.Line());
    }
}

// The guide lies beside a program that runs from its own folder, else in the shared data of the system.
std::string HelpPagePath(std::string_view page) {
    std::string folder, fileName;
    fSplitPath(HelpFilePath, folder, fileName);
    for (const char* place : {"help/", "../share/vellumark/help/"}) {
        std::string path = folder + place + std::string(page);
        if (platform::FileExists(path))
            return path;
    }
    throw platform::Error(platform::kFileNotFound,
                          "File not found: '" + folder + "help/" + std::string(page) + "'");
}

void ShowHelp(HelpTopic what) {
    constexpr std::array<std::string_view, 3> pages = {"index.html", "index.html", "using-help.html"};
    try {
        HelpViewer(what, HelpPagePath(pages.at(static_cast<std::size_t>(what) - 1)));
    } catch (const platform::Error& error) {
        platform::ShowExclamation("Cannot show the help.\n\n" + error.Line());
    }
}

}  // namespace vellumark
