#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vellumark::test {

// Name and content of each.
using Entries = std::vector<std::pair<std::string, std::string>>;

// Writes a zip file and returns its path. With a password all entries are encrypted.
std::string WriteZip(const std::string& path, const Entries& entries, const std::string& password = "");

// The parts of a small .xlsx file that differ from test to test, as XML.
struct XlsxParts {
    Entries sheets;             // names with the rows of each
    std::string strings = {};   // the "si" elements
    std::string formats = {};   // the "numFmt" elements
    std::string styles = {};    // the "xf" elements of cells
    std::string workbook = {};  // what stands before the list of sheets
};
std::string WriteXlsx(const std::string& path, const XlsxParts& parts);

// Rows of texts in one sheet; an empty text makes no cell.
std::string WriteXlsx(const std::string& path, const std::string& sheet,
                      const std::vector<std::vector<std::string>>& rows);

// An .ods file of these "table:table" elements.
std::string WriteOds(const std::string& path, const std::string& tables, const std::string& manifest = "");

}  // namespace vellumark::test
