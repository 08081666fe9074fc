#include <filesystem>
#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/stat.h>

#include "platform/error.h"
#include "platform/files.h"
#include "recorder.h"
#include "repository/modRepositoryStores.h"
#include "repository/modSequentialFileServices.h"
#include "temp_folder.h"

namespace vellumark {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class FileServices : public testing::Test {
 protected:
    test::TempFolder folder_;
    test::Recorder boxes_;
};

TEST_F(FileServices, SeesFilesOnly) {
    folder_.Write("sub/a.txt", "x");
    EXPECT_TRUE(fFileExists(folder_.Path("sub/a.txt")));
    EXPECT_TRUE(fFileExists(folder_.Path() + "\\sub\\a.txt"));
    EXPECT_FALSE(fFileExists(folder_.Path("sub")));
    EXPECT_FALSE(fFileExists(folder_.Path("sub/a.txt/b")));
    EXPECT_FALSE(fFileExists(""));
}

TEST_F(FileServices, AsksBeforeReplacing) {
    EXPECT_FALSE(fFileReplaceOK(""));
    EXPECT_EQ(boxes_.Take(), "exclamation: Please enter name and path for the text file");

    EXPECT_TRUE(fFileReplaceOK(folder_.Path("new.txt")));
    EXPECT_EQ(boxes_.Take(), "");

    const std::string path = folder_.Write("old.txt", "x");
    boxes_.yesNoAnswers = {false, true};
    EXPECT_FALSE(fFileReplaceOK(path));
    EXPECT_TRUE(fFileReplaceOK(path));
    const std::string question = "question: " + path + " already exists. Do you want to replace it?";
    EXPECT_EQ(boxes_.Take(), question + "|" + question);
}

TEST_F(FileServices, NeverReplacesAStore) {
    RepositoryPath = folder_.Write("Vellumark.mdb", "x");
    ValuesPath = folder_.Write("Vellumark Values.mdb", "x");
    for (const std::string& path : {folder_.Path("./Vellumark.mdb"), ValuesPath}) {
        EXPECT_FALSE(fFileReplaceOK(path));
        EXPECT_EQ(boxes_.Take(), "exclamation: " + path + " is a store of Vellumark and cannot be replaced.");
    }
}

TEST_F(FileServices, CopiesOverAnOlderFile) {
    folder_.Write("from/a.txt", "new");
    folder_.Write("to/a.txt", "older and longer");
    EXPECT_TRUE(Copy_File("a.txt", folder_.Path("from/"), folder_.Path("to")));
    EXPECT_EQ(test::ReadFile(folder_.Path("to/a.txt")), "new");
    EXPECT_EQ(boxes_.Take(), "");
}

TEST_F(FileServices, TellsWhyItCannotCopy) {
    folder_.Write("from/a.txt", "x");
    EXPECT_FALSE(Copy_File("a.txt", "/no/from", folder_.Path()));
    EXPECT_EQ(
        boxes_.Take(),
        "critical: Function: Copy_File, Invalid parameter value for SourceDir - Directory does not exist: "
        "/no/from");
    EXPECT_FALSE(Copy_File("a.txt", folder_.Path("from"), "/no/to"));
    EXPECT_EQ(
        boxes_.Take(),
        "critical: Function: Copy_File, Invalid parameter value for DestinationDir - Directory does not "
        "exist/no/to");
    EXPECT_FALSE(Copy_File("b.txt", folder_.Path("from"), folder_.Path()));
    EXPECT_THAT(boxes_.Take(), StartsWith("critical: Error copying file '" + folder_.Path("from/b.txt") +
                                          "' to '" + folder_.Path("b.txt") + "'\n\nError: 53 "));
    // A root keeps its one separator.
    EXPECT_FALSE(Copy_File("no such file", "/", folder_.Path()));
    EXPECT_THAT(boxes_.Take(), HasSubstr("'/no such file'"));
}

TEST_F(FileServices, MakesAFolderForEachSeparator) {
    EXPECT_TRUE(fMakeFolderChain(folder_.Path("a/b/c/")));
    EXPECT_TRUE(fs::is_directory(folder_.Path("a/b/c")));
    EXPECT_TRUE(fMakeFolderChain(folder_.Path("a/d/e")));
    EXPECT_TRUE(fs::is_directory(folder_.Path("a/d")));
    EXPECT_FALSE(fs::exists(folder_.Path("a/d/e")));
    EXPECT_TRUE(fMakeFolderChain(folder_.Path() + "\\f\\g\\"));
    EXPECT_TRUE(fs::is_directory(folder_.Path("f/g")));

    EXPECT_TRUE(fMakeFolderChain(""));
    EXPECT_TRUE(fMakeFolderChain(folder_.Path("h/i:")));
    EXPECT_FALSE(fs::exists(folder_.Path("h")));

    folder_.Write("file", "x");
    EXPECT_FALSE(fMakeFolderChain(folder_.Path("file/j/")));
    EXPECT_FALSE(fMakeFolderChain(folder_.Path("file/")));
    EXPECT_EQ(test::ReadFile(folder_.Path("file")), "x");
}

TEST_F(FileServices, DeletesMatchingFilesAndNoFolders) {
    const auto left = [&](const std::string& pattern) {
        for (const char* name : {"a.txt", "B.TXT", "ab.txt", "c.txt.bak", "plain"})
            folder_.Write(name, "x");
        folder_.Write("d.txt/inside.txt", "x");
        chmod(folder_.Path("a.txt").c_str(), 0400);
        DeleteFilesInFolder(pattern, folder_.Path());
        std::string names;
        for (const char* name : {"a.txt", "B.TXT", "ab.txt", "c.txt.bak", "plain", "d.txt/inside.txt"})
            names += fs::exists(folder_.Path(name)) ? std::string(name) + " " : "";
        fs::permissions(folder_.Path(), fs::perms::owner_all);
        if (fs::exists(folder_.Path("a.txt")))
            chmod(folder_.Path("a.txt").c_str(), 0600);
        return names;
    };
    EXPECT_EQ(left("*.txt"), "c.txt.bak plain d.txt/inside.txt ");
    EXPECT_EQ(left("?.txt"), "ab.txt c.txt.bak plain d.txt/inside.txt ");
    EXPECT_EQ(left("*.*"), "d.txt/inside.txt ");
    EXPECT_EQ(left("plain"), "a.txt B.TXT ab.txt c.txt.bak d.txt/inside.txt ");
    EXPECT_EQ(left("[a].txt"), "a.txt B.TXT ab.txt c.txt.bak plain d.txt/inside.txt ");
    EXPECT_NO_THROW(DeleteFilesInFolder("*.*", ""));
    EXPECT_THROW(DeleteFilesInFolder("*.*", folder_.Path("missing")), platform::Error);
}

TEST_F(FileServices, ChangesTheCurrentFolder) {
    const fs::path before = fs::current_path();
    folder_.Write("sub/a.txt", "x");
    ChangeFolder(folder_.Path() + "\\sub\\");
    EXPECT_TRUE(fs::equivalent(fs::current_path(), folder_.Path("sub")));
    EXPECT_THROW(ChangeFolder(folder_.Path("missing")), platform::Error);
    EXPECT_TRUE(fs::equivalent(fs::current_path(), folder_.Path("sub")));
    fs::current_path(before);
}

TEST_F(FileServices, RenamesOntoNothingThatExists) {
    folder_.Write("a.tso/x.sql", "x");
    folder_.Write("b.tso/y.sql", "y");
    EXPECT_THROW(platform::Rename(folder_.Path("a.tso"), folder_.Path("b.tso")), platform::Error);
    platform::Rename(folder_.Path("a.tso"), folder_.Path("c.tso"));
    EXPECT_EQ(test::ReadFile(folder_.Path("c.tso/x.sql")), "x");
    platform::RemoveFolder(folder_.Path("c.tso"));
    EXPECT_FALSE(fs::exists(folder_.Path("c.tso")));
    EXPECT_NO_THROW(platform::RemoveFolder(folder_.Path("c.tso")));
}

TEST(SmallTexts, SplitsPaths) {
    struct Case {
        const char* path;
        const char* folder;
        const char* fileName;
    };
    const Case cases[] = {{"/a/b.txt", "/a/", "b.txt"},
                          {"C:\\a\\b.txt", "C:\\a\\", "b.txt"},
                          {"/a\\b/c\\d", "/a\\b/c\\", "d"},
                          {"abc", "", "abc"},
                          {"/a/", "/a/", ""},
                          {"", "", ""}};
    for (const Case& c : cases) {
        std::string folder = c.path;
        std::string fileName;
        EXPECT_TRUE(fSplitPath(folder, folder, fileName));
        EXPECT_EQ(folder, c.folder);
        EXPECT_EQ(fileName, c.fileName);
        EXPECT_EQ(FileNameOnly(c.path), c.fileName);
    }
}

TEST(SmallTexts, StripsOuterCharacters) {
    const std::pair<const char*, const char*> cases[] = {
        {"'it''s'", "it''s"}, {"ab", ""}, {"a", "a"}, {"", ""}, {"äbü", "b"}, {"ä", "ä"}};
    for (const auto& [text, inner] : cases)
        EXPECT_EQ(StripOuterCharacters(text), inner);
}

TEST(SmallTexts, SwapsTheParenthesisedPart) {
    const std::pair<const char*, const char*> roundTrips[] = {
        {"Name (Entity)", "(Entity) Name"},
        {"A B (C D)", "(C D) A B"},
        {"CUST (Customer (old))", "(Customer (old)) CUST"}};
    for (const auto& [text, swapped] : roundTrips) {
        EXPECT_EQ(SwapParenthesised(text), swapped);
        EXPECT_EQ(SwapParenthesised(swapped), text);
    }
    for (const char* text :
         {"", "Name", "Name (Entity", "Entity) Name", "Name)", "(Name", "(Entity)", "a)(b"})
        EXPECT_EQ(SwapParenthesised(text), text);
}

TEST(SmallTexts, CountsDigits) {
    struct Case {
        const char* text;
        char point;
        int integerDigits;
        int decimalDigits;
    };
    const Case cases[] = {{"-12.345", '.', 2, 3}, {"12,5", ',', 2, 1}, {"12.5", ',', 3, 0},
                          {".5", '.', 0, 1},      {"1000", '.', 4, 0}, {"", '.', 0, 0}};
    for (const Case& c : cases) {
        const NumberDigits digits = GetNumberDigits(c.text, c.point);
        EXPECT_EQ(digits.integerDigits, c.integerDigits) << c.text;
        EXPECT_EQ(digits.decimalDigits, c.decimalDigits) << c.text;
    }
}

// A search path that holds only the programs of a test, and records what is started.
class Editor : public FileServices {
 protected:
    Editor() : searchPath_(getenv("PATH")) {
        setenv("PATH", folder_.Path("bin").c_str(), 1);
        ProgramStarter = [this](const std::vector<std::string>& command) { started_.push_back(command); };
        RepositoryPath = folder_.Path("Vellumark.mdb");
        dao::CreateDatabase(RepositoryPath, kRepositoryPassword, true);
        const RepositoryScope repository;
        RepositoryDatabase.Execute(
            "create table [Options] ([Editor Exe] TEXT(255), "
            "[Flag Open SQL File With Editor] YESNO)");
        RepositoryDatabase.Execute("insert into [Options] values ('Notepad', True)");
        file_ = folder_.Write("out.sql", "x");
    }
    ~Editor() override {
        setenv("PATH", searchPath_.c_str(), 1);
        ProgramStarter = platform::StartDetached;
    }

    void Install(const std::string& program) {
        chmod(folder_.Write("bin/" + program, "#!/bin/sh\n").c_str(), 0755);
    }
    void SetOptions(const dao::Parameter& editor, bool openFiles) {
        const RepositoryScope repository;
        RepositoryDatabase.Execute(
            "update [Options] set [Editor Exe] = ?, [Flag Open SQL File With Editor] = ?",
            {editor, openFiles});
    }
    std::vector<std::string> Opened(bool force = false) {
        started_.clear();
        OpenFileWithEditor(file_, force);
        return started_.size() == 1 ? started_[0] : std::vector<std::string>();
    }

    std::string searchPath_;
    std::string file_;
    std::vector<std::vector<std::string>> started_;
};

TEST_F(Editor, IsTheOneOfTheOptionsOrTheDesktops) {
    EXPECT_THAT(Opened(), ElementsAre("xdg-open", file_));
    Install("gedit");
    Install("my editor");
    SetOptions("gedit", true);
    EXPECT_THAT(Opened(), ElementsAre("gedit", file_));
    SetOptions("gedit --new-window", true);
    EXPECT_THAT(Opened(), ElementsAre("gedit", "--new-window", file_));
    SetOptions(folder_.Path("bin/my editor"), true);
    EXPECT_THAT(Opened(), ElementsAre(folder_.Path("bin/my editor"), file_));
    SetOptions(dao::Value(), true);
    EXPECT_THAT(Opened(), ElementsAre("xdg-open", file_));
    Install("Notepad");
    EXPECT_THAT(Opened(), ElementsAre("Notepad", file_));
}

TEST_F(Editor, OpensUnwantedFilesOnlyByForce) {
    Install("ed");
    SetOptions("ed", false);
    EXPECT_THAT(Opened(), IsEmpty());
    EXPECT_THAT(Opened(true), ElementsAre("ed", file_));
    EXPECT_EQ(boxes_.Take(), "");
}

TEST_F(Editor, TellsWhyAFileIsNotOpened) {
    ProgramStarter = platform::StartDetached;
    OpenFileWithEditor(file_, true);
    EXPECT_EQ(boxes_.Take(), "exclamation: Cannot open the file in the text editor: " + file_ +
                                 "\n\nError: 53 Program not found: 'xdg-open'");
    Install("xdg-open");
    OpenFileWithEditor(folder_.Path("missing.sql"), true);
    EXPECT_THAT(boxes_.Take(), HasSubstr("Error: 53 File not found: '" + folder_.Path("missing.sql") + "'"));
}

TEST_F(Editor, OtherFilesOpenInTheDesktopsViewer) {
    OpenFileWithViewer(file_);
    EXPECT_THAT(started_, ElementsAre(ElementsAre("xdg-open", file_)));
    OpenFileWithViewer(folder_.Path("missing.htm"));
    EXPECT_EQ(boxes_.Take(),
              "exclamation: Cannot open the file in the viewer: " + folder_.Path("missing.htm") +
                  "\n\nError: 53 File not found: '" + folder_.Path("missing.htm") + "'");
}

TEST_F(Editor, HelpShowsThePageOfTheUsersGuide) {
    folder_.Write("help/index.html", "");
    HelpFilePath = folder_.Path("Vellumark.chm");
    ShowHelp(HelpTopic::Contents);
    ShowHelp(HelpTopic::Search);
    EXPECT_THAT(started_, ElementsAre(ElementsAre("xdg-open", folder_.Path("help/index.html")),
                                      ElementsAre("xdg-open", folder_.Path("help/index.html"))));
    ShowHelp(HelpTopic::HelpOnHelp);
    EXPECT_EQ(boxes_.Take(), "exclamation: Cannot show the help.\n\nError: 53 File not found: '" +
                                 folder_.Path("help/using-help.html") + "'");
}

}  // namespace
}  // namespace vellumark
