#include <filesystem>
#include <gtest/gtest.h>
#include <limits>

#include "platform/error.h"
#include "platform/number_text.h"
#include "platform/spreadsheet/cell_text.h"
#include "platform/spreadsheet/workbook.h"
#include "spreadsheet_files.h"
#include "temp_folder.h"
#include "test_files.h"

namespace vellumark::test {

namespace {

using platform::CellRange;

constexpr int kAll = 999999999;

// The cells as "row.column text", joined by "|"; reading ends behind `most` of them.
std::string Cells(const std::string& path, std::size_t sheet, const CellRange& range = {1, 1, kAll, kAll},
                  int most = kAll) {
    const auto workbook = platform::OpenWorkbook(path);
    std::string cells;
    workbook->ReadRange(sheet, range, [&](int row, int column, std::string_view text) {
        cells += (cells.empty() ? "" : "|") + std::to_string(row) + "." + std::to_string(column) + " ";
        cells += text;
        return --most > 0;
    });
    return cells;
}

// The number and the description of the error that opening or reading the first sheet ends with.
std::string ErrorOf(const std::string& path) {
    try {
        return "no error: " + Cells(path, 0);
    } catch (const platform::Error& error) {
        return std::to_string(error.Number()) + " " + error.Description();
    }
}

const std::string kNoWorkbook =
    "3343 The file is no workbook of a kind that can be read (.xlsx, .ods, .xls).";
const std::string kCutShort = "3343 The file is damaged or cut short.";
const std::string kProtected = "70 The file is protected by a password.";

class SpreadsheetTest : public ::testing::Test {
 protected:
    std::string Xlsx(const XlsxParts& parts) { return WriteXlsx(folder.Path("a.xlsx"), parts); }
    // The texts of a row of cells, in XML.
    std::string Row(const std::string& cells, const std::string& styles = "", const std::string& formats = "",
                    const std::string& workbook = "") {
        return Cells(Xlsx({{{"S", "<row>" + cells + "</row>"}}, "", formats, styles, workbook}), 0);
    }
    std::string Ods(const std::string& rows) {
        return WriteOds(folder.Path("a.ods"), "<table:table table:name=\"S\">" + rows + "</table:table>");
    }

    TempFolder folder;
};

}  // namespace

TEST(NumberTextTest, IsShortest) {
    struct Case {
        double number;
        const char* text;
    };
    for (const Case& c : {Case{0, "0"}, Case{-0.0, "0"}, Case{1, "1"}, Case{100000, "100000"},
                          Case{-2.5, "-2.5"}, Case{0.1, "0.1"}, Case{0.1 + 0.2, "0.30000000000000004"},
                          Case{1.0 / 1024, "0.0009765625"}, Case{123456789012345, "123456789012345"},
                          Case{1e15, "1E+15"}, Case{1.5e-9, "1.5E-09"}, Case{-1e300, "-1E+300"}})
        EXPECT_EQ(platform::NumberText(c.number), c.text);
}

TEST(CellTextTest, TellsDatesFromSerialNumbers) {
    struct Case {
        double serial;
        bool from1904;
        const char* text;
    };
    const std::vector<Case> cases = {
        {45351, false, "2024-02-29"},
        {45351.5, false, "2024-02-29 12:00:00"},
        {45351.999999, false, "2024-03-01"},  // rounded to a second
        {1, false, "1900-01-01"},
        {59, false, "1900-02-28"},
        {60, false, "1900-02-28"},  // a day that never was
        {61, false, "1900-03-01"},
        {0.25, false, "06:00:00"},
        {0, false, "00:00:00"},
        {2958465, false, "9999-12-31"},
        {2958466, false, "2958466"},
        {-1, false, "-1"},
        {0, true, "00:00:00"},
        {1, true, "1904-01-02"},
        {43889, true, "2024-02-29"},
        {-2000, true, "-2000"},
    };
    for (const Case& c : cases) {
        std::string text;
        platform::AppendSerialDate(text, c.serial, c.from1904);
        EXPECT_EQ(text, c.text) << c.serial;
    }
}

TEST(CellTextTest, TellsDateFormats) {
    using platform::CellFormat;
    for (const char* code : {"yyyy-mm-dd", "d/m/yy;@", "[$-409]h:mm AM/PM", "[h]:mm", "mm:ss.0", "MMM",
                             "[ss]", "\"on\" dd", "[Red]dd.mm.yy"})
        EXPECT_EQ(platform::FormatOfCode(code), CellFormat::Date) << code;
    for (const char* code : {"General", "0.00", "#,##0_d", "0.00%", "0 \"days\"", "\\d0", "[Red]0", "0;dd",
                             "@", "0.00E+00", "# ?/?", "\"open", "[open", ""})
        EXPECT_EQ(platform::FormatOfCode(code), CellFormat::Number) << code;
    EXPECT_EQ(platform::FormatOfCode("\"TRUE\";\"TRUE\";\"FALSE\""), CellFormat::Boolean);
}

TEST_F(SpreadsheetTest, ReadsXlsxCells) {
    struct Case {
        const char* cell;
        const char* text;
    };
    const std::vector<Case> cases = {
        {"<c><v>0.10000000000000001</v></c>", "1.1 0.1"},
        {"<c t=\"n\"><v>1E3</v></c>", "1.1 1000"},
        {"<c s=\"1\"><v>45351</v></c>", "1.1 2024-02-29"},
        {"<c s=\"2\"><v>45351.75</v></c>", "1.1 2024-02-29 18:00:00"},
        {"<c s=\"3\"><v>0.5</v></c>", "1.1 0.5"},
        {"<c s=\"4\"><v>1</v></c>", "1.1 True"},
        {"<c s=\"99\"><v>7</v></c>", "1.1 7"},
        {"<c t=\"b\"><v>0</v></c>", "1.1 False"},
        {"<c t=\"e\"><v>#N/A</v></c>", "1.1 #N/A"},
        {"<c t=\"d\"><v>2024-02-29T01:02:03.5Z</v></c>", "1.1 2024-02-29 01:02:04"},
        {"<c t=\"str\"><f>\"a\"&amp;\"b\"</f><v>ab</v></c>", "1.1 ab"},
        {"<c><f>1+1</f><v>2</v></c>", "1.1 2"},
        {"<c><f>1+1</f></c>", ""},
        {"<c t=\"inlineStr\"><is><r><t>a </t></r><r><t>b</t></r><rPh><t>x</t></rPh></is></c>", "1.1 a b"},
        {"<c t=\"inlineStr\"><is><t>l1_x000A_l2_x_x263A_</t></is></c>", "1.1 l1\nl2_x_x263A_"},
        {"<c/><c r=\"C1\"><v>3</v></c><c><v>4</v></c>", "1.3 3|1.4 4"},
        {"<c r=\"AB1\"><v>28</v></c>", "1.28 28"},
    };
    const std::string styles =
        "<xf/><xf numFmtId=\"14\"/><xf numFmtId=\"164\"/><xf numFmtId=\"10\"/><xf numFmtId=\"165\"/>";
    const std::string formats =
        "<numFmt numFmtId=\"164\" formatCode=\"dd.mm.yyyy hh:mm\"/>"
        "<numFmt numFmtId=\"165\" formatCode=\"&quot;TRUE&quot;;&quot;TRUE&quot;;&quot;FALSE&quot;\"/>";
    for (const Case& c : cases)
        EXPECT_EQ(Row(c.cell, styles, formats), c.text) << c.cell;
    EXPECT_EQ(Row("<c s=\"1\"><v>1</v></c>", styles, formats, "<workbookPr date1904=\"1\"/>"),
              "1.1 1904-01-02");
}

TEST_F(SpreadsheetTest, ReadsSheetsAndRangesOfXlsx) {
    const std::string rows =
        "<row r=\"2\"><c r=\"A2\" t=\"s\"><v>1</v></c><c r=\"B2\" t=\"s\"><v>0</v></c></row>"
        "<row r=\"4\"><c r=\"B4\"><v>42</v></c><c r=\"C4\"><v>43</v></c></row>";
    const std::string path =
        Xlsx({{{"First", ""}, {"Data", rows}},
              "<si><t>one</t></si><si><r><t>t</t></r><r><t>wo</t></r><rPh><t>x</t></rPh></si>"});
    EXPECT_EQ(platform::OpenWorkbook(path)->SheetNames(), (std::vector<std::string>{"First", "Data"}));
    EXPECT_EQ(Cells(path, 0), "");
    EXPECT_EQ(Cells(path, 1), "2.1 two|2.2 one|4.2 42|4.3 43");
    EXPECT_EQ(Cells(path, 1, {2, 2, 3, kAll}), "2.2 one");
    EXPECT_EQ(Cells(path, 1, {3, 1, kAll, 2}), "4.2 42");
    EXPECT_EQ(Cells(path, 1, {1, 1, kAll, kAll}, 2), "2.1 two|2.2 one");
}

TEST_F(SpreadsheetTest, ReadsOdsCells) {
    struct Case {
        const char* cell;
        const char* text;
    };
    const std::vector<Case> cases = {
        {"office:value-type=\"float\" office:value=\"1.50\"><text:p>1,5</text:p>", "1.1 1.5"},
        {"office:value-type=\"percentage\" office:value=\"0.25\"><text:p>25 %</text:p>", "1.1 0.25"},
        {"office:value-type=\"currency\" office:value=\"100000\">", "1.1 100000"},
        {"office:value-type=\"date\" office:date-value=\"2024-02-29\">", "1.1 2024-02-29"},
        {"office:value-type=\"date\" office:date-value=\"2024-12-31T23:59:59.999999999\">", "1.1 2025-01-01"},
        {"office:value-type=\"date\" office:date-value=\"2024-02-29T01:02:03\">", "1.1 2024-02-29 01:02:03"},
        {"office:value-type=\"date\" office:date-value=\"0024-02-29T01:02:03.5\">",
         "1.1 0024-02-29T01:02:03.5"},
        {"office:value-type=\"time\" office:time-value=\"PT07H08M09S\">", "1.1 07:08:09"},
        {"office:value-type=\"time\" office:time-value=\"PT100H00M00.0S\">", "1.1 100:00:00"},
        {"office:value-type=\"boolean\" office:boolean-value=\"true\">", "1.1 True"},
        {"office:value-type=\"string\"><text:p>a<text:s "
         "text:c=\"2\"/><text:span>b</text:span></text:p><text:p>c</text:p>",
         "1.1 a  b\nc"},
        {"office:value-type=\"string\" office:string-value=\"own\"><text:p>shown</text:p>", "1.1 own"},
        {"office:value-type=\"string\"><office:annotation><text:p>note</text:p></"
         "office:annotation><text:p>t</text:p>",
         "1.1 t"},
        {">", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Cells(Ods(std::string("<table:table-row><table:table-cell ") + c.cell +
                            "</table:table-cell></table:table-row>"),
                        0),
                  c.text)
            << c.cell;
}

TEST_F(SpreadsheetTest, CountsRepeatedAndCoveredCellsOfOds) {
    const std::string a = "office:value-type=\"string\"><text:p>a</text:p></table:table-cell>";
    const std::string path =
        WriteOds(folder.Path("r.ods"),
                 "<table:table table:name=\"One\"><table:table-row><table:table-cell " + a +
                     "</table:table-row></table:table><table:table table:name=\"Two\">"
                     "<table:table-row table:number-rows-repeated=\"2\"><table:table-cell/></table:table-row>"
                     "<table:table-header-rows><table:table-row table:number-rows-repeated=\"3\">"
                     "<table:table-cell table:number-columns-repeated=\"2\"/><table:table-cell "
                     "table:number-columns-repeated=\"2\" " +
                     a + "<table:covered-table-cell " +
                     "><text:p>hidden</text:p></table:covered-table-cell><table:table-cell " + a +
                     "</table:table-row></table:table-header-rows>"
                     "<table:table-row table:number-rows-repeated=\"2147483647\"><table:table-cell "
                     "table:number-columns-repeated=\"2147483647\"/></table:table-row></table:table>");
    EXPECT_EQ(platform::OpenWorkbook(path)->SheetNames(), (std::vector<std::string>{"One", "Two"}));
    EXPECT_EQ(Cells(path, 0), "1.1 a");
    EXPECT_EQ(Cells(path, 1), "3.3 a|3.4 a|3.6 a|4.3 a|4.4 a|4.6 a|5.3 a|5.4 a|5.6 a");
    EXPECT_EQ(Cells(path, 1, {4, 4, 4, 5}), "4.4 a");
    EXPECT_EQ(Cells(path, 1, {1, 1, kAll, kAll}, 4), "3.3 a|3.4 a|3.6 a|4.3 a");
}

// The file was made by another program.
TEST_F(SpreadsheetTest, ReadsXls) {
    const std::string path = TestData("people.xls");
    EXPECT_EQ(platform::OpenWorkbook(path)->SheetNames(), (std::vector<std::string>{"People", "Other"}));
    EXPECT_EQ(Cells(path, 0, {1, 1, kAll, 3}),
              "1.1 Ann|1.2 42|1.3 2024-02-29|2.1 Jörg|2.2 1.5|2.3 2024-02-29 13:05:59|3.1 Zoë|3.2 "
              "1234567.25|3.3 07:08:09");
    EXPECT_EQ(Cells(path, 0, {1, 4, 2, kAll}), "1.4 0.25");
    EXPECT_EQ(Cells(path, 1), "2.2 only");
    EXPECT_EQ(Cells(path, 0, {2, 1, kAll, 1}, 1), "2.1 Jörg");
}

TEST_F(SpreadsheetTest, RefusesWhatIsNoWorkbook) {
    EXPECT_EQ(ErrorOf(folder.Path("missing.xlsx")), "53 The file does not exist.");
    EXPECT_EQ(ErrorOf(folder.Path()), "53 The file does not exist.");
    EXPECT_EQ(ErrorOf(folder.Write("empty.xlsx", "")), kNoWorkbook);
    EXPECT_EQ(ErrorOf(folder.Write("text.xls", "a,b,c\r\n")), kNoWorkbook);
    EXPECT_EQ(ErrorOf(folder.Write("page.xls", "<html></html>")), kNoWorkbook);
    EXPECT_EQ(ErrorOf(WriteZip(folder.Path("other.zip"), {{"a.txt", "a"}})), kNoWorkbook);
    EXPECT_EQ(
        ErrorOf(WriteZip(folder.Path("text.odt"), {{"mimetype", "application/vnd.oasis.opendocument.text"}})),
        kNoWorkbook);
    EXPECT_EQ(ErrorOf(Xlsx({})), "3343 The file holds no worksheets.");
    EXPECT_EQ(ErrorOf(WriteOds(folder.Path("none.ods"), "")), "3343 The file holds no worksheets.");
}

TEST_F(SpreadsheetTest, RefusesProtectedFiles) {
    const std::string manifest =
        "<manifest:manifest xmlns:manifest=\"m\"><manifest:file-entry>"
        "<manifest:encryption-data/></manifest:file-entry></manifest:manifest>";
    EXPECT_EQ(ErrorOf(WriteOds(folder.Path("p.ods"), "", manifest)), kProtected);
    EXPECT_EQ(ErrorOf(WriteZip(folder.Path("p.xlsx"), {{"_rels/.rels", "<a/>"}}, "secret")), kProtected);
    // A protected .xlsx file is a compound file without a workbook stream.
    EXPECT_EQ(ErrorOf(folder.Write("p2.xlsx", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1")), kCutShort);
}

TEST_F(SpreadsheetTest, RefusesDamagedFiles) {
    const std::string whole =
        ReadFile(WriteXlsx(folder.Path("w.xlsx"), "S", {{"abcdefghijklmnopqrstuvwxyz"}, {"b"}}));
    EXPECT_EQ(ErrorOf(folder.Write("half.xlsx", whole.substr(0, whole.size() / 2))), kCutShort);
    std::string rotten = whole;
    const std::size_t sheet = rotten.find("xl/worksheets/sheet1.xml") + 40;
    rotten.replace(sheet, 20, 20, '\xFF');
    EXPECT_TRUE(ErrorOf(folder.Write("rotten.xlsx", rotten))
                    .starts_with("3343 The file is damaged: 'xl/worksheets/"));
    const std::string xls = ReadFile(TestData("people.xls"));
    EXPECT_EQ(ErrorOf(folder.Write("half.xls", xls.substr(0, 2000))), kCutShort);
    // One of these lengths sends the library behind the end of its memory.
    for (std::size_t at = 2180; at < 2220; ++at) {
        const std::string error =
            ErrorOf(folder.Write("rotten.xls", std::string(xls).replace(at, 2, "\xFF\xFF")));
        EXPECT_TRUE(error.starts_with("no error") || error == kCutShort) << at << ": " << error;
    }

    struct Case {
        const char* rows;
        const char* error;
    };
    for (const Case& c :
         {Case{"<row r=\"2\"/><row r=\"1\"/>", "3343 The sheet is damaged: row 1 stands behind row 2."},
          Case{"<row><c r=\"B1\"/><c r=\"A1\"/></row>",
               "3343 The sheet is damaged: cell A1 in row 1 is out of its place."},
          Case{"<row><c r=\"7\"/></row>", "3343 The sheet is damaged: cell 7 in row 1 is out of its place."},
          Case{"<row><c r=\"ZZZZZZZZ1\"/></row>",
               "3343 The sheet is damaged: cell ZZZZZZZZ1 in row 1 is out of its place."},
          Case{"<row><c><v>x</v></c></row>", "3343 The sheet is damaged: 'x' in row 1 is no number."},
          Case{"<row><c t=\"s\"><v>5</v></c></row>",
               "3343 The sheet is damaged: a cell in row 1 refers to a text that isn't there."},
          Case{"<row>",
               "3343 The file is damaged: 'xl/worksheets/sheet1.xml' in it is no valid XML (mismatched "
               "tag)."}})
        EXPECT_EQ(ErrorOf(Xlsx({{{"S", c.rows}}})), c.error);
}

}  // namespace vellumark::test
