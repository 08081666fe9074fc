#include "platform/spreadsheet/ods_sheet.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/number_text.h"
#include "platform/spreadsheet/cell_text.h"
#include "platform/text_list.h"

namespace vellumark::platform {

namespace {

// Rows and columns that a sheet can have; damaged files repeat cells beyond them.
constexpr int kMostRows = 16777216;
constexpr int kMostColumns = 16384;

// Where text in a cell is not the cell's own: notes and drawings.
bool IsForeign(std::string_view name) {
    return name == "office:annotation" || name == "table:shapes" || name.starts_with("draw:");
}

class SheetReader : public XmlHandler {
 public:
    SheetReader(std::size_t sheet, const CellRange& range, const CellHandler& use)
        : sheet_(sheet), range_(range), use_(use) {}

    void StartElement(std::string_view name, const XmlAttributes& attributes) override;
    void EndElement(std::string_view name) override;
    void Text(std::string_view text) override {
        if (inText_ && foreignDepth_ == 0)
            content_ += text;
    }

 private:
    struct Run {
        int firstColumn;
        int lastColumn;
    };

    void StartTable();
    void StartRow(const XmlAttributes& attributes);
    void StartCell(const XmlAttributes& attributes, bool covered);
    void StartInCell(std::string_view name, const XmlAttributes& attributes);
    void ReadValue(const XmlAttributes& attributes);
    void EndInSheet(std::string_view name);
    void EndCell();
    void EndRow();
    bool GiveRow();
    bool IsWanted() const { return tableDepth_ == 1 && tablesBegun_ == sheet_ + 1; }

    std::size_t sheet_;
    const CellRange& range_;
    const CellHandler& use_;

    std::size_t tablesBegun_ = 0;
    int tableDepth_ = 0;
    int foreignDepth_ = 0;
    int row_ = 1;
    int rowRepeat_ = 1;
    int column_ = 1;
    int cellRepeat_ = 1;
    bool inCell_ = false;
    bool inText_ = false;
    bool hasValue_ = false;  // an attribute told it, so that the shown text does not count
    int paragraphs_ = 0;
    std::string content_;
    std::vector<Run> runs_;  // of the row under way, with their texts
    TextList texts_;
};

void SheetReader::StartElement(std::string_view name, const XmlAttributes& attributes) {
    if (name == "table:table")
        return StartTable();
    if (!IsWanted())
        return;
    if (foreignDepth_ > 0 || IsForeign(name))
        ++foreignDepth_;
    else if (name == "table:table-row")
        StartRow(attributes);
    else if (name == "table:table-cell" || name == "table:covered-table-cell")
        StartCell(attributes, name == "table:covered-table-cell");
    else if (inCell_ && !hasValue_)
        StartInCell(name, attributes);
}

void SheetReader::EndElement(std::string_view name) {
    if (name == "table:table") {
        if (IsWanted())
            Stop();
        --tableDepth_;
    } else if (IsWanted()) {
        if (foreignDepth_ > 0)
            --foreignDepth_;
        else
            EndInSheet(name);
    }
}

void SheetReader::StartTable() {
    if (tableDepth_++ == 0)
        ++tablesBegun_;
}

void SheetReader::StartRow(const XmlAttributes& attributes) {
    rowRepeat_ = std::clamp(attributes.Number("table:number-rows-repeated", 1), 1, kMostRows);
    column_ = 1;
    runs_.clear();
    texts_ = {};
}

void SheetReader::StartCell(const XmlAttributes& attributes, bool covered) {
    cellRepeat_ = std::clamp(attributes.Number("table:number-columns-repeated", 1), 1, kMostColumns);
    const int last = column_ + cellRepeat_ - 1;
    const bool rowWanted = std::int64_t{row_} + rowRepeat_ > range_.firstRow;
    inCell_ = !covered && rowWanted && last >= range_.firstColumn && column_ <= range_.lastColumn;
    if (!inCell_) {
        column_ = std::min(last + 1, kMostColumns + 1);
        return;
    }
    hasValue_ = false;
    paragraphs_ = 0;
    content_.clear();
    ReadValue(attributes);
}

void SheetReader::ReadValue(const XmlAttributes& attributes) {
    const std::string_view type = attributes.Get("office:value-type");
    if (type.empty())
        return;
    if (type == "string") {
        content_ = attributes.Get("office:string-value");
        hasValue_ = !content_.empty();
        return;
    }
    hasValue_ = true;
    if (type == "boolean") {
        content_ = attributes.Get("office:boolean-value") == "true" ? kTrueText : kFalseText;
    } else if (type == "date") {
        AppendIsoDate(content_, attributes.Get("office:date-value"));
    } else if (type == "time") {
        AppendIsoDuration(content_, attributes.Get("office:time-value"));
    } else {
        const std::string_view value = attributes.Get("office:value");
        double number = 0;
        const char* end = value.data() + value.size();
        if (!value.empty() && std::from_chars(value.data(), end, number).ptr == end)
            AppendNumberText(content_, number);
        else
            content_ = value;
    }
}

void SheetReader::StartInCell(std::string_view name, const XmlAttributes& attributes) {
    if (name == "text:p") {
        if (paragraphs_++ > 0)
            content_ += '\n';
        inText_ = true;
    } else if (inText_ && name == "text:s") {
        content_.append(static_cast<std::size_t>(std::clamp(attributes.Number("text:c", 1), 1, kMostColumns)),
                        ' ');
    } else if (inText_ && name == "text:tab") {
        content_ += '\t';
    } else if (inText_ && name == "text:line-break") {
        content_ += '\n';
    }
}

void SheetReader::EndInSheet(std::string_view name) {
    if (name == "text:p")
        inText_ = false;
    else if (name == "table:table-cell" && inCell_)
        EndCell();
    else if (name == "table:table-row")
        EndRow();
}

void SheetReader::EndCell() {
    inCell_ = false;
    inText_ = false;
    const int last = std::min(column_ + cellRepeat_ - 1, kMostColumns);
    if (!content_.empty() && column_ <= last) {
        runs_.push_back({column_, last});
        texts_.Append(content_);
    }
    column_ = last + 1;
}

void SheetReader::EndRow() {
    const int next = std::min(row_ + rowRepeat_, kMostRows + 1);
    if (runs_.empty())
        row_ = next;
    for (; row_ < next; ++row_)
        if (row_ >= range_.firstRow && (row_ > range_.lastRow || !GiveRow()))
            return Stop();
    if (row_ > range_.lastRow)
        Stop();
}

bool SheetReader::GiveRow() {
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        const int last = std::min(runs_[i].lastColumn, range_.lastColumn);
        for (int column = std::max(runs_[i].firstColumn, range_.firstColumn); column <= last; ++column)
            if (!use_(row_, column, texts_[i]))
                return false;
    }
    return true;
}

}  // namespace

void ReadOdsSheet(const ZipArchive& archive, const std::string& entry, std::size_t sheet,
                  const CellRange& range, const CellHandler& use) {
    SheetReader reader(sheet, range, use);
    ReadXml(archive, entry, reader);
}

}  // namespace vellumark::platform
