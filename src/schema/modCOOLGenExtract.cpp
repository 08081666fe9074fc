#include "schema/modCOOLGenExtract.h"

#include <array>
#include <filesystem>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/shared_library.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr const char* kReadLibrary = "eapi32w.dll";
constexpr const char* kToolFolder = "Drawbar";
constexpr std::array kModelFiles = {"ief0000.dat", "ief0700.dat", "ief1200.dat", "ief2511.dat"};

struct ExtractTool {
    std::string name;
    const char* status;
    const char* failure;
};

const std::array<ExtractTool, 3> kTools = {{
    {"table", "Reading tables from COOL:Gen model", "Unexpected error creating Table.txt file"},
    {"column", "Reading columns from COOL:Gen model", "Unexpected error creating Column.txt file"},
    {"permval", "Reading permitted values from COOL:Gen model", "Unexpected error creating permval.txt file"},
}};

std::string ToolPath(std::string_view name) {
    return JoinPath(ProgramFolder + kToolFolder, name);
}

std::string WorkFolder() {
    return JoinPath(CurrentDBSFolder, "temp.ief");
}

// A model comes from a system where the case of file names does not count.
std::string ModelFile(const std::string& folder, const std::string& name) {
    const std::vector<std::string> found = platform::FilesIn(folder, name);
    return found.empty() ? JoinPath(folder, name) : found.front();
}

bool fCopyModel(const std::string& modelFolder) {
    if (!platform::FolderExists(WorkFolder()))
        platform::CreateFolder(WorkFolder());
    for (const std::string name : kModelFiles) {
        try {
            platform::CopyFile(ModelFile(modelFolder, name), JoinPath(WorkFolder(), name));
        } catch (const platform::Error&) {
            platform::CurrentDialogs().TitledMessage(
                platform::Icon::Critical, "Case Weaver - Test Manager",
                "Unexpected error copying " + name + " file from COOL:Gen model");
            return false;
        }
    }
    return true;
}

std::string AccessCode(const std::string& tool) {
    const std::string file = ToolPath(kAccessCodeFile);
    const std::string code = fFileExists(file) ? GetINIValue(file, tool) : "";
    if (code.empty())
        platform::ShowExclamation("The access code of the extract tool '" + tool + "' is missing in " + file);
    return code;
}

bool fRunTool(const ExtractTool& tool, std::string_view dbmsCode) {
    platform::ShowStatus(tool.status);
    const std::string accessCode = AccessCode(tool.name);
    const std::string output = JoinPath(CurrentDBSFolder, tool.name);
    bool done = false;
    try {
        done = !accessCode.empty() &&
               platform::RunToEnd({ToolPath(tool.name + ".exe"), accessCode, "model=" + WorkFolder(),
                                   "log=" + output + ".log", "out=" + output + ".txt",
                                   "param=DBMS_NAME," + std::string(dbmsCode), "silent"}) == 0;
    } catch (const platform::Error& error) {
        platform::ShowExclamation(error.Line());
    }
    if (!done)
        platform::ShowExclamation(tool.failure);
    return done;
}

// What can't be deleted stays.
void TryToDelete(std::string_view pattern, const std::string& folder) {
    try {
        DeleteFilesInFolder(pattern, folder);
    } catch (const platform::Error&) {
        return;
    }
}

// Removes what the extract leaves beside its files, however it ended.
class WorkFiles {
 public:
    explicit WorkFiles(const std::string& modelFolder) : modelFolder_(modelFolder) {}
    ~WorkFiles() {
        for (const char* file : {"ief0700.wrk", "ief1200.wrk", "ief2501.wrk", "ief2511.dat", "iefacces.log"})
            TryToDelete(file, CurrentDBSFolder);
        TryToDelete("iefacces.log", modelFolder_);
        TryToDelete("*.dat", WorkFolder());
        std::error_code ignored;
        std::filesystem::remove(WorkFolder(), ignored);
    }
    WorkFiles(const WorkFiles&) = delete;
    WorkFiles& operator=(const WorkFiles&) = delete;

 private:
    const std::string& modelFolder_;
};

}  // namespace

bool fCOOLGenAPIPresent() {
    return platform::CanLoadLibrary(ProgramFolder + kReadLibrary) || platform::CanLoadLibrary(kReadLibrary);
}

void ShowCOOLGenAPIMissing() {
    platform::ShowCritical(
        "Can not load Cool:Gen read API (eapi32w.dll)\nPlease make sure Cool:Gen read only API is installed "
        "properly.");
}

bool fExtractCOOLGenModel(const std::string& modelFolder, std::string_view dbmsCode) {
    const WorkFiles cleaned(modelFolder);
    platform::ShowStatus("Reading COOL:Gen model");
    if (!fCopyModel(modelFolder))
        return false;
    for (const ExtractTool& tool : kTools)
        if (!fRunTool(tool, dbmsCode))
            return false;
    return true;
}

}  // namespace vellumark
