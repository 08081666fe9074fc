#include "tools/reportFile.h"

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "repository/modVellumark.h"

namespace vellumark {

std::string ReportFolder() {
    try {
        const RepositoryScope repository;
        return dao::ToText(RepositoryDatabase.Lookup("select [Dir Report] from [Options]"));
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the options", error);
        return {};
    }
}

std::string ReportPath(const std::string& folder, std::string_view fileName) {
    return folder.empty() ? std::string(fileName) : JoinPath(platform::PlatformPath(folder), fileName);
}

std::unique_ptr<platform::OutputFile> OpenReportFile(const std::string& path) {
    try {
        return std::make_unique<platform::OutputFile>(platform::PlatformPath(path));
    } catch (const platform::Error&) {
        platform::ShowExclamation("Cannot open the File: " + path);
        return nullptr;
    }
}

}  // namespace vellumark
