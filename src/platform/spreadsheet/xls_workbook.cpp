#include "platform/spreadsheet/xls_workbook.h"

namespace vellumark::platform {

XlsWorkbook::XlsWorkbook(const std::string& path) : path_(path) {
    names_ = process_.emplace(path_).ReceiveSheetNames();
}

void XlsWorkbook::ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) {
    if (!process_)
        process_.emplace(path_).ReceiveSheetNames();
    try {
        process_->ReadRange(sheet, range, use);
    } catch (...) {
        process_.reset();
        throw;
    }
    process_.reset();
}

}  // namespace vellumark::platform
