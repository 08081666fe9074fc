#include "spreadsheet_files.h"

#include <gtest/gtest.h>
#include <zip.h>

namespace vellumark::test {

namespace {

constexpr const char* kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
const std::string kMain = "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
const std::string kOffice = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

std::string Relation(const std::string& id, const std::string& type, const std::string& target) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + kOffice + "/" + type + "\" Target=\"" + target +
           "\"/>";
}

std::string Relations(const std::string& relations) {
    return kHead + ("<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">" +
                    relations + "</Relationships>");
}

std::string CellName(std::size_t row, std::size_t column) {
    return static_cast<char>('A' + column) + std::to_string(row + 1);
}

}  // namespace

std::string WriteZip(const std::string& path, const Entries& entries, const std::string& password) {
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    EXPECT_NE(archive, nullptr) << path;
    for (const auto& [name, content] : entries) {
        zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
        const zip_int64_t index = zip_file_add(archive, name.c_str(), source, 0);
        EXPECT_GE(index, 0) << name;
        const zip_uint16_t method = password.empty() ? ZIP_EM_NONE : ZIP_EM_AES_128;
        EXPECT_EQ(
            zip_file_set_encryption(archive, static_cast<zip_uint64_t>(index), method, password.c_str()), 0);
    }
    EXPECT_EQ(zip_close(archive), 0) << path;
    return path;
}

std::string WriteXlsx(const std::string& path, const XlsxParts& parts) {
    std::string sheets;
    std::string relations = Relation("s", "sharedStrings", "sharedStrings.xml") +
                            Relation("y", "styles", "/xl/styles.xml") +
                            Relation("c", "chartsheet", "chart.xml");
    Entries entries = {{"_rels/.rels", Relations(Relation("w", "officeDocument", "xl/workbook.xml"))}};
    int number = 0;
    for (const auto& [name, rows] : parts.sheets) {
        const std::string id = std::to_string(++number);
        sheets += "<sheet name=\"" + name + "\" sheetId=\"" + id + "\" r:id=\"r" + id + "\"/>";
        relations += Relation("r" + id, "worksheet", "worksheets/sheet" + id + ".xml");
        entries.emplace_back(
            "xl/worksheets/sheet" + id + ".xml",
            kHead + ("<worksheet " + kMain + "><sheetData>" + rows + "</sheetData></worksheet>"));
    }
    entries.emplace_back("xl/workbook.xml",
                         kHead + ("<workbook " + kMain + " xmlns:r=\"" + kOffice + "\">" + parts.workbook +
                                  "<sheets><sheet name=\"Chart\" sheetId=\"99\" r:id=\"c\"/>" + sheets +
                                  "</sheets></workbook>"));
    entries.emplace_back("xl/_rels/workbook.xml.rels", Relations(relations));
    entries.emplace_back("xl/sharedStrings.xml", kHead + ("<sst " + kMain + ">" + parts.strings + "</sst>"));
    entries.emplace_back("xl/styles.xml",
                         kHead + ("<styleSheet " + kMain + "><numFmts>" + parts.formats +
                                  "</numFmts><cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs><cellXfs>" +
                                  parts.styles + "</cellXfs></styleSheet>"));
    return WriteZip(path, entries);
}

std::string WriteXlsx(const std::string& path, const std::string& sheet,
                      const std::vector<std::vector<std::string>>& rows) {
    std::string xml;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        xml += "<row r=\"" + std::to_string(row + 1) + "\">";
        for (std::size_t column = 0; column < rows[row].size(); ++column)
            if (!rows[row][column].empty())
                xml += "<c r=\"" + CellName(row, column) + "\" t=\"inlineStr\"><is><t>" + rows[row][column] +
                       "</t></is></c>";
        xml += "</row>";
    }
    return WriteXlsx(path, XlsxParts{{{sheet, xml}}});
}

std::string WriteOds(const std::string& path, const std::string& tables, const std::string& manifest) {
    const std::string names =
        " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
        " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
        " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\""
        " xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\"";
    Entries entries = {
        {"mimetype", "application/vnd.oasis.opendocument.spreadsheet"},
        {"content.xml", kHead + ("<office:document-content" + names + "><office:body><office:spreadsheet>" +
                                 tables + "</office:spreadsheet></office:body></office:document-content>")}};
    if (!manifest.empty())
        entries.emplace_back("META-INF/manifest.xml", manifest);
    return WriteZip(path, entries);
}

}  // namespace vellumark::test
