#pragma once

#include <optional>

#include "platform/spreadsheet/workbook.h"
#include "platform/spreadsheet/xls_process.h"

namespace vellumark::platform {

class XlsWorkbook : public Workbook {
 public:
    explicit XlsWorkbook(const std::string& path);

    const std::vector<std::string>& SheetNames() override { return names_; }
    void ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) override;

 private:
    std::string path_;
    std::optional<XlsProcess> process_;  // until it has read a range
    std::vector<std::string> names_;
};

}  // namespace vellumark::platform
