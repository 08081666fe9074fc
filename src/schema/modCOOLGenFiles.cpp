#include "schema/modCOOLGenFiles.h"

#include "platform/dialogs.h"
#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::array<std::string_view, kCOOLGenDBMSNames.size()> kCodes = {
    "MVS_DB2", "NTUNIX_DB2", "INFORMIX", "INGRES", "MSSQL", "NONSTOP",
    "ODBC",    "ORACLE",     "RDB",      "SYBASE", "XDB"};

}  // namespace

std::string_view fDBMSCode(std::string_view name) {
    for (std::size_t i = 0; i < kCodes.size(); ++i)
        if (platform::EqualsIgnoringCase(kCOOLGenDBMSNames[i], name))
            return kCodes[i];
    return {};
}

ExtractFile::ExtractFile(FieldFile file, std::string_view dbmsCode)
    : file_(std::move(file)), dbmsCode_(dbmsCode) {
    file_.SkipLines(2);
    modelName_ = file_.ReadLine();
    file_.SkipLines(1);
}

bool ExtractFile::fNextLine() {
    while (file_.fNextLine())
        if (IsOfSystem())
            return true;
    return false;
}

bool ExtractFile::IsOfSystem() const {
    const std::string_view tag = platform::Trim(file_.Field(0));
    return tag.starts_with('[') && tag.ends_with(']') &&
           platform::Trim(tag.substr(1, tag.size() - 2)) == dbmsCode_;
}

std::optional<ExtractFile> OpenExtractFile(std::string_view fileName, std::string_view dbmsCode) {
    const std::string path = JoinPath(CurrentDBSFolder, fileName);
    std::optional<FieldFile> file = OpenFieldFile(path, ',');
    if (file)
        return ExtractFile(std::move(*file), dbmsCode);
    platform::ShowExclamation("Cannot open the file: " + path);
    return std::nullopt;
}

}  // namespace vellumark
