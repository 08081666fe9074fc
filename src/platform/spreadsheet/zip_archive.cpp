#include "platform/spreadsheet/zip_archive.h"

#include <vector>

#include "platform/error.h"

namespace vellumark::platform {

namespace {

constexpr std::size_t kPieceSize = 64 * 1024;

struct CloseEntry {
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using EntryHandle = std::unique_ptr<zip_file_t, CloseEntry>;

[[noreturn]] void ThrowDamaged(const std::string& entry) {
    throw Error(kUnrecognizedFormat, "The file is damaged: '" + entry + "' in it can't be read.");
}

}  // namespace

ZipArchive::ZipArchive(const std::string& path) {
    int code = 0;
    archive_.reset(zip_open(path.c_str(), ZIP_RDONLY, &code));
    if (archive_)
        return;
    if (code == ZIP_ER_OPEN)
        throw Error(kPermissionDenied, "The file can't be read.");
    throw Error(kUnrecognizedFormat, "The file is damaged or cut short.");
}

bool ZipArchive::Has(const std::string& entry) const {
    return zip_name_locate(archive_.get(), entry.c_str(), ZIP_FL_NOCASE) >= 0;
}

void ZipArchive::Read(const std::string& entry, const std::function<bool(std::string_view)>& use) const {
    const EntryHandle file(zip_fopen(archive_.get(), entry.c_str(), ZIP_FL_NOCASE));
    if (!file && zip_error_code_zip(zip_get_error(archive_.get())) == ZIP_ER_NOPASSWD)
        throw Error(kPermissionDenied, "The file is protected by a password.");
    if (!file)
        ThrowDamaged(entry);
    std::vector<char> piece(kPieceSize);
    for (;;) {
        const zip_int64_t count = zip_fread(file.get(), piece.data(), piece.size());
        if (count < 0)
            ThrowDamaged(entry);
        if (count == 0 || !use({piece.data(), static_cast<std::size_t>(count)}))
            return;
    }
}

}  // namespace vellumark::platform
