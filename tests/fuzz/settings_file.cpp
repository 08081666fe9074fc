#include <array>
#include <filesystem>

#include "input.h"
#include "platform/text.h"
#include "repository/modVellumark.h"
#include "scene.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

// The rule once more, in another way.
std::string ValueIn(std::string_view text, const std::string& key) {
    for (std::string_view line : platform::Split(text, '\n')) {
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.starts_with(key + "="))
            return std::string(line.substr(key.size() + 1));
    }
    return {};
}

// Starts a session by a settings file; false when that told why it can't.
bool fStart(const std::string& settings, std::string_view words) {
    try {
        StartSession(settings + std::string(words));
        return true;
    } catch (const platform::ProgramEnd&) {
        return false;
    }
}

}  // namespace

// A line behind the file's name on the command line, then the settings file; "@" stands for the folder of two
// good stores.
void FuzzSettingsFile(std::string_view bytes) {
    Scene& scene = Scene::Get();
    CountingDialogs& dialogs = UseCountingDialogs();
    Input input(bytes);
    const std::string_view words = input.Line();
    const std::string text = platform::Replace(input.Rest(), "@", scene.Path(""));
    const std::string path = scene.Write("settings.ini", text);
    for (const char* key : {"REPOSITORY", "VM_DATABASES", "VALUES", ""})
        ExpectSame(GetINIValue(path, key), ValueIn(text, key), "a key's value");

    const std::array paths = {RepositoryPath, ValuesPath, DatabasesFolder};
    const bool started = fStart(path, words);
    Expect(started || dialogs.shown > 0, "a program that does not start says why");
    Expect(!started || std::filesystem::equivalent(RepositoryPath, paths[0]),
           "only a folder with a store starts");
    RepositoryPath = paths[0];
    ValuesPath = paths[1];
    DatabasesFolder = paths[2];
}

}  // namespace vellumark::fuzz
