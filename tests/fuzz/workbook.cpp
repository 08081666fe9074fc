#include "targets.h"
#include "temp_folder.h"
#include "workbook_check.h"

namespace vellumark::fuzz {

namespace {

const test::TempFolder& Folder() {
    static const test::TempFolder folder;
    return folder;
}

const test::Entries kXlsx = {
    {"_rels/.rels",
     "<Relationships><Relationship Id=\"w\" "
     "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument\" "
     "Target=\"xl/workbook.xml\"/></Relationships>"},
    {"xl/_rels/workbook.xml.rels",
     "<Relationships>"
     "<Relationship Id=\"s\" Type=\"http://x/relationships/sharedStrings\" Target=\"sharedStrings.xml\"/>"
     "<Relationship Id=\"y\" Type=\"http://x/relationships/styles\" Target=\"/xl/styles.xml\"/>"
     "<Relationship Id=\"r1\" Type=\"http://x/relationships/worksheet\" Target=\"worksheets/sheet1.xml\"/>"
     "</Relationships>"},
    {"xl/workbook.xml",
     "<workbook><sheets><sheet name=\"S\" sheetId=\"1\" r:id=\"r1\"/></sheets></workbook>"},
    {"xl/sharedStrings.xml", "<sst><si><t>a</t></si><si><t>b</t></si></sst>"},
    {"xl/styles.xml",
     "<styleSheet><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/></cellXfs></styleSheet>"},
    {"xl/worksheets/sheet1.xml", ""},
};

const test::Entries kOds = {
    {"mimetype", "application/vnd.oasis.opendocument.spreadsheet"},
    {"content.xml", ""},
};

}  // namespace

// The entries of a zip file whose check sums hold, so that damage comes to the readers of XML.
void FuzzXlsx(std::string_view bytes) {
    CheckWorkbook(test::WriteZip(Folder().Path("in.xlsx"), WithParts(kXlsx, bytes)));
}

void FuzzOds(std::string_view bytes) {
    CheckWorkbook(test::WriteZip(Folder().Path("in.ods"), WithParts(kOds, bytes)));
}

// A whole file of any kind, as it comes.
void FuzzWorkbookFile(std::string_view bytes) {
    CheckWorkbook(Folder().Write("in.xls", bytes));
}

}  // namespace vellumark::fuzz
