#pragma once

#include "platform/spreadsheet/workbook.h"
#include "platform/spreadsheet/zip_archive.h"

namespace vellumark::platform {

class OdsWorkbook : public Workbook {
 public:
    static bool Serves(const ZipArchive& archive);

    // Throws kPermissionDenied when the file is protected by a password.
    explicit OdsWorkbook(std::unique_ptr<ZipArchive> archive);

    const std::vector<std::string>& SheetNames() override { return names_; }
    void ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) override;

 private:
    std::unique_ptr<ZipArchive> archive_;
    std::vector<std::string> names_;
};

}  // namespace vellumark::platform
