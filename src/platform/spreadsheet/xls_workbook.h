#pragma once

#include "platform/spreadsheet/workbook.h"

namespace vellumark::platform {

struct CloseXls {
    void operator()(const void* handle) const;
};

// The .xls form. Its formulas are empty, and dates from March 2100 are a day late.
class XlsWorkbook : public Workbook {
 public:
    explicit XlsWorkbook(const std::string& path);

    const std::vector<std::string>& SheetNames() override { return names_; }
    void ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) override;

 private:
    std::unique_ptr<const void, CloseXls> handle_;
    std::vector<std::string> names_;
};

}  // namespace vellumark::platform
