#pragma once

#include "platform/spreadsheet/workbook.h"

namespace vellumark::platform {

struct CloseXls {
    void operator()(const void* handle) const;
};

// A file of the .xls form, read by a library that a damaged file may make read and write anywhere: XlsProcess
// keeps that from doing harm. Formulas are empty, and dates from March 2100 are a day late.
class XlsFile {
 public:
    explicit XlsFile(const std::string& path);

    const std::vector<std::string>& SheetNames() const { return names_; }
    void ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) const;

 private:
    std::unique_ptr<const void, CloseXls> handle_;
    std::vector<std::string> names_;
};

}  // namespace vellumark::platform
