#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::platform {

// Cells count from 1.
struct CellRange {
    int firstRow = 1;
    int firstColumn = 1;
    int lastRow = 1;
    int lastColumn = 1;
};

// Receives a cell that is not empty; false ends the reading. The text is valid during the call.
using CellHandler = std::function<bool(int row, int column, std::string_view text)>;

// An open spreadsheet file: .xlsx, .ods or .xls. Numbers are given as the shortest text, dates as
// "YYYY-MM-DD", with a time of day as "YYYY-MM-DD HH:MM:SS", times as "HH:MM:SS", truth values as "True" and
// "False", formulas as their last result. Failures throw Error: kUnrecognizedFormat for a damaged file,
// kDeviceIOError when reading fails.
class Workbook {
 public:
    virtual ~Workbook() = default;

    // Worksheets only.
    virtual const std::vector<std::string>& SheetNames() = 0;
    // Gives the cells row by row, from left to right. Sheets count from 0.
    virtual void ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) = 0;
};

// Tells the kind of file by its content. Throws Error: kFileNotFound, kPermissionDenied for one that can't be
// read or is protected by a password, kUnrecognizedFormat for one that is no spreadsheet or damaged.
std::unique_ptr<Workbook> OpenWorkbook(const std::string& path);

}  // namespace vellumark::platform
