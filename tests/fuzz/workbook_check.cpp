#include "workbook_check.h"

#include <algorithm>

#include "engine/sheetStretch.h"
#include "input.h"
#include "platform/error.h"
#include "platform/spreadsheet/workbook.h"

namespace vellumark::fuzz {

namespace {

using platform::CellRange;

constexpr std::size_t kMostCells = 2000;
constexpr std::size_t kMostSheets = 3;
constexpr CellRange kWholeSheet = {1, 1, 1048576, 16384};

struct Cell {
    int row;
    int column;
    std::string text;
    bool operator==(const Cell&) const = default;
};

bool Holds(const CellRange& range, int row, int column) {
    return row >= range.firstRow && row <= range.lastRow && column >= range.firstColumn &&
           column <= range.lastColumn;
}

struct Cells {
    std::vector<Cell> cells;
    bool complete = false;
};

Cells Read(platform::Workbook& workbook, std::size_t sheet, const CellRange& range) {
    Cells read;
    bool stopped = false;
    const auto take = [&](int row, int column, std::string_view text) {
        Expect(!stopped, "no cell comes behind a stop");
        Expect(!text.empty(), "no empty cell comes");
        Expect(Holds(range, row, column), "no cell comes from outside of the range");
        if (!read.cells.empty()) {
            const Cell& last = read.cells.back();
            Expect(row > last.row || (row == last.row && column > last.column), "cells come in their order");
        }
        read.cells.push_back({row, column, std::string(text)});
        stopped = read.cells.size() == kMostCells;
        return !stopped;
    };
    try {
        workbook.ReadRange(sheet, range, take);
        read.complete = !stopped;
    } catch (const platform::Error& error) {
        Expect(error.Number() == platform::kUnrecognizedFormat ||
                   error.Number() == platform::kPermissionDenied ||
                   error.Number() == platform::kDeviceIOError,
               "an error of a damaged file: " + error.Line());
    }
    return read;
}

// What a source that walks over the sheet makes of it.
void CheckStretch(const std::vector<Cell>& cells) {
    ValueSource source;
    source.rowEndCell = cells.empty() ? "" : cells.back().text;
    SheetStretch stretch(source);
    for (const Cell& cell : cells)
        if (!stretch.Take(cell.row, cell.column, cell.text))
            break;
    Expect(stretch.TotalRows() >= 0 && stretch.TotalColumns() >= 0, "a stretch is no less than empty");
    for (const Cell& cell : cells)
        if (cell.row <= stretch.LastRow() && cell.column <= stretch.LastColumn())
            ExpectSame(stretch.Text(cell.row, cell.column), cell.text, "a cell of the stretch");
}

void CheckSheet(platform::Workbook& workbook, std::size_t sheet) {
    const Cells whole = Read(workbook, sheet, kWholeSheet);
    CheckStretch(whole.cells);
    if (!whole.complete)
        return;
    for (const CellRange& range :
         {CellRange{2, 1, 4, 2}, CellRange{1, 2, 1048576, 5}, CellRange{3, 3, 3, 3}}) {
        std::vector<Cell> expected;
        std::ranges::copy_if(whole.cells, std::back_inserter(expected),
                             [&](const Cell& cell) { return Holds(range, cell.row, cell.column); });
        const Cells part = Read(workbook, sheet, range);
        Expect(part.complete && part.cells == expected, "a part of a sheet holds the same cells");
    }
}

}  // namespace

void CheckWorkbook(const std::string& path) {
    try {
        const auto workbook = platform::OpenWorkbook(path);
        const std::size_t sheets = std::min(workbook->SheetNames().size(), kMostSheets);
        for (std::size_t sheet = 0; sheet < sheets; ++sheet)
            CheckSheet(*workbook, sheet);
    } catch (const platform::Error& error) {
        Expect(error.Number() == platform::kUnrecognizedFormat ||
                   error.Number() == platform::kPermissionDenied ||
                   error.Number() == platform::kDeviceIOError,
               "an error of a damaged file: " + error.Line());
    }
}

test::Entries WithParts(test::Entries entries, std::string_view input) {
    std::size_t at = input.find("@@");
    while (at != input.npos) {
        const std::size_t next = input.find("@@", at + 2);
        Input part(input.substr(at + 2, next == input.npos ? next : next - at - 2));
        const std::string name(part.Line());
        const auto old = std::ranges::find(entries, name, &test::Entries::value_type::first);
        if (old != entries.end())
            old->second = part.Rest();
        else if (!name.empty() && name.find('\0') == name.npos)
            entries.emplace_back(name, part.Rest());
        at = next;
    }
    return entries;
}

}  // namespace vellumark::fuzz
