#include "platform/spreadsheet/xls_file.h"

#include <algorithm>
#include <freexl.h>

#include "platform/error.h"
#include "platform/number_text.h"

namespace vellumark::platform {

namespace {

constexpr std::string_view kMidnight = " 00:00:00";

[[noreturn]] void ThrowFor(int code) {
    switch (code) {
        case FREEXL_FILE_NOT_FOUND:
            throw Error(kPermissionDenied, "The file can't be read.");
        case FREEXL_BIFF_WORKBOOK_NOT_FOUND:
            throw Error(kUnrecognizedFormat,
                        "The file holds no workbook that can be read; it may be protected by a password.");
        default:
            throw Error(kUnrecognizedFormat, "The file is damaged or cut short.");
    }
}

void Check(int code) {
    if (code != FREEXL_OK)
        ThrowFor(code);
}

unsigned int Info(const void* handle, unsigned short what) {
    unsigned int value = 0;
    Check(freexl_get_info(handle, what, &value));
    return value;
}

std::string_view TextOf(const FreeXL_CellValue& cell) {
    return cell.value.text_value == nullptr ? std::string_view() : cell.value.text_value;
}

void MakeText(std::string& text, const FreeXL_CellValue& cell) {
    text.clear();
    switch (cell.type) {
        case FREEXL_CELL_INT:
            text = std::to_string(cell.value.int_value);
            return;
        case FREEXL_CELL_DOUBLE:
            return AppendNumberText(text, cell.value.double_value);
        case FREEXL_CELL_DATETIME:
            text = TextOf(cell);
            if (text.ends_with(kMidnight))
                text.resize(text.size() - kMidnight.size());
            return;
        case FREEXL_CELL_TEXT:
        case FREEXL_CELL_SST_TEXT:
        case FREEXL_CELL_DATE:
        case FREEXL_CELL_TIME:
            text = TextOf(cell);
            return;
        default:
            return;
    }
}

}  // namespace

void CloseXls::operator()(const void* handle) const {
    freexl_close(handle);
}

XlsFile::XlsFile(const std::string& path) {
    const void* handle = nullptr;
    const int code = freexl_open(path.c_str(), &handle);
    handle_.reset(handle);
    Check(code);
    const unsigned int count = Info(handle, FREEXL_BIFF_SHEET_COUNT);
    if (count == 0 || Info(handle, FREEXL_BIFF_PASSWORD) == FREEXL_BIFF_OBFUSCATED)
        throw Error(kPermissionDenied, "The file is protected by a password, or it holds no worksheets.");
    for (unsigned short i = 0; i < count; ++i) {
        const char* name = nullptr;
        Check(freexl_get_worksheet_name(handle, i, &name));
        names_.emplace_back(name == nullptr ? "" : name);
    }
}

void XlsFile::ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) const {
    Check(freexl_select_active_worksheet(handle_.get(), static_cast<unsigned short>(sheet)));
    unsigned int rows = 0;
    unsigned short columns = 0;
    Check(freexl_worksheet_dimensions(handle_.get(), &rows, &columns));
    const int lastRow = std::min(range.lastRow, static_cast<int>(rows));
    const int lastColumn = std::min(range.lastColumn, static_cast<int>(columns));
    std::string text;
    for (int row = range.firstRow; row <= lastRow; ++row) {
        for (int column = range.firstColumn; column <= lastColumn; ++column) {
            FreeXL_CellValue cell = {};
            Check(freexl_get_cell_value(handle_.get(), static_cast<unsigned int>(row - 1),
                                        static_cast<unsigned short>(column - 1), &cell));
            MakeText(text, cell);
            if (!text.empty() && !use(row, column, text))
                return;
        }
    }
}

}  // namespace vellumark::platform
