#include "platform/spreadsheet/xlsx_sheet.h"

#include <charconv>
#include <string>

#include "platform/error.h"
#include "platform/number_text.h"
#include "platform/spreadsheet/xlsx_strings.h"
#include "platform/text.h"

namespace vellumark::platform {

namespace {

constexpr int kMostColumns = 16384;

[[noreturn]] void ThrowDamaged(const std::string& what) {
    throw Error(kUnrecognizedFormat, "The sheet is damaged: " + what + ".");
}

// The column of a reference such as "AB12"; 0 when it is none.
int ColumnOf(std::string_view reference) {
    int column = 0;
    for (const char letter : reference) {
        if (letter < 'A' || letter > 'Z' || column > kMostColumns)
            break;
        column = column * 26 + (letter - 'A' + 1);
    }
    return column;
}

class SheetReader : public XmlHandler {
 public:
    SheetReader(const XlsxShared& shared, const CellRange& range, const CellHandler& use)
        : shared_(shared), range_(range), use_(use) {}

    void StartElement(std::string_view name, const XmlAttributes& attributes) override;
    void EndElement(std::string_view name) override;
    void Text(std::string_view text) override {
        if (inText_)
            content_ += text;
    }

 private:
    void StartRow(const XmlAttributes& attributes);
    void StartCell(const XmlAttributes& attributes);
    void EndCell();
    void MakeText();
    void AppendNumber();
    void AppendSharedString();

    const XlsxShared& shared_;
    const CellRange& range_;
    const CellHandler& use_;
    int row_ = 0;
    int column_ = 0;
    bool inCell_ = false;  // of a cell that is wanted
    bool inText_ = false;
    bool inPhonetic_ = false;
    std::string type_;
    std::size_t style_ = 0;
    std::string content_;
    std::string text_;
};

void SheetReader::StartElement(std::string_view name, const XmlAttributes& attributes) {
    const std::string_view local = LocalName(name);
    if (local == "c")
        StartCell(attributes);
    else if (local == "row")
        StartRow(attributes);
    else if (local == "rPh")
        inPhonetic_ = true;
    else
        inText_ = inCell_ && !inPhonetic_ && (local == "v" || local == "t");
}

void SheetReader::EndElement(std::string_view name) {
    const std::string_view local = LocalName(name);
    inText_ = false;
    if (local == "c" && inCell_)
        EndCell();
    else if (local == "rPh")
        inPhonetic_ = false;
    else if (local == "sheetData")
        Stop();
}

void SheetReader::StartRow(const XmlAttributes& attributes) {
    const int row = attributes.Number("r", row_ + 1);
    if (row <= row_)
        ThrowDamaged("row " + std::to_string(row) + " stands behind row " + std::to_string(row_));
    row_ = row;
    column_ = 0;
    if (row_ > range_.lastRow)
        Stop();
}

void SheetReader::StartCell(const XmlAttributes& attributes) {
    const std::string_view reference = attributes.Get("r");
    const int column = reference.empty() ? column_ + 1 : ColumnOf(reference);
    if (column <= column_ || column > kMostColumns)
        ThrowDamaged("cell " + std::string(reference) + " in row " + std::to_string(row_) +
                     " is out of its place");
    column_ = column;
    inCell_ = row_ >= range_.firstRow && column_ >= range_.firstColumn && column_ <= range_.lastColumn;
    if (!inCell_)
        return;
    type_ = attributes.Get("t");
    style_ = static_cast<std::size_t>(attributes.Number("s", 0));
    content_.clear();
}

void SheetReader::EndCell() {
    inCell_ = false;
    if (content_.empty())
        return;
    text_.clear();
    MakeText();
    if (!text_.empty() && !use_(row_, column_, text_))
        Stop();
}

void SheetReader::MakeText() {
    if (type_ == "s")
        AppendSharedString();
    else if (type_ == "str" || type_ == "inlineStr")
        AppendUnescaped(text_, content_);
    else if (type_ == "b")
        text_ = content_ == "0" ? kFalseText : kTrueText;
    else if (type_ == "d")
        AppendIsoDate(text_, content_);
    else if (type_ == "e")
        text_ = content_;
    else
        AppendNumber();
}

void SheetReader::AppendNumber() {
    double number = 0;
    const char* end = content_.data() + content_.size();
    if (std::from_chars(content_.data(), end, number).ptr != end)
        ThrowDamaged("'" + content_ + "' in row " + std::to_string(row_) + " is no number");
    const CellFormat format = style_ < shared_.styles.size() ? shared_.styles[style_] : CellFormat::Number;
    AppendFormatted(text_, number, format, shared_.from1904);
}

void SheetReader::AppendSharedString() {
    const auto index = ParseLong(content_);
    if (!index || *index < 0 || static_cast<std::size_t>(*index) >= shared_.strings.Size())
        ThrowDamaged("a cell in row " + std::to_string(row_) + " refers to a text that isn't there");
    text_ = shared_.strings[static_cast<std::size_t>(*index)];
}

}  // namespace

void ReadXlsxSheet(const ZipArchive& archive, const std::string& entry, const XlsxShared& shared,
                   const CellRange& range, const CellHandler& use) {
    SheetReader reader(shared, range, use);
    ReadXml(archive, entry, reader);
}

}  // namespace vellumark::platform
