#pragma once

#include <optional>

#include "platform/spreadsheet/workbook.h"
#include "platform/spreadsheet/xlsx_sheet.h"
#include "platform/spreadsheet/zip_archive.h"

namespace vellumark::platform {

class XlsxWorkbook : public Workbook {
 public:
    static bool Serves(const ZipArchive& archive);

    explicit XlsxWorkbook(std::unique_ptr<ZipArchive> archive);

    const std::vector<std::string>& SheetNames() override { return names_; }
    void ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) override;

 private:
    const XlsxShared& Shared();

    std::unique_ptr<ZipArchive> archive_;
    std::vector<std::string> names_;
    std::vector<std::string> entries_;  // of the sheets
    std::string stringsEntry_;          // empty when the file has none
    std::string stylesEntry_;           // likewise
    bool from1904_ = false;
    std::optional<XlsxShared> shared_;
};

}  // namespace vellumark::platform
