#include "platform/spreadsheet/workbook.h"

#include <fstream>

#include "platform/error.h"
#include "platform/files.h"
#include "platform/spreadsheet/ods_workbook.h"
#include "platform/spreadsheet/xls_workbook.h"
#include "platform/spreadsheet/xlsx_workbook.h"
#include "platform/spreadsheet/zip_archive.h"

namespace vellumark::platform {

namespace {

constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0";

std::string FirstBytes(const std::string& path) {
    if (!FileExists(path))
        throw Error(kFileNotFound, "The file does not exist.");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw Error(kPermissionDenied, "The file can't be read.");
    std::string bytes(4, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

std::unique_ptr<Workbook> OpenZipped(const std::string& path) {
    auto archive = std::make_unique<ZipArchive>(path);
    if (XlsxWorkbook::Serves(*archive))
        return std::make_unique<XlsxWorkbook>(std::move(archive));
    if (OdsWorkbook::Serves(*archive))
        return std::make_unique<OdsWorkbook>(std::move(archive));
    throw Error(kUnrecognizedFormat,
                "The file is no workbook of a kind that can be read (.xlsx, .ods, .xls).");
}

}  // namespace

std::unique_ptr<Workbook> OpenWorkbook(const std::string& path) {
    const std::string bytes = FirstBytes(path);
    if (bytes.starts_with("PK"))
        return OpenZipped(path);
    const bool isOldStream = bytes.size() == 4 && bytes[0] == '\x09' && bytes[3] == '\0';
    if (bytes == kCompoundFile || isOldStream)
        return std::make_unique<XlsWorkbook>(path);
    throw Error(kUnrecognizedFormat,
                "The file is no workbook of a kind that can be read (.xlsx, .ods, .xls).");
}

}  // namespace vellumark::platform
