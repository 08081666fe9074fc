#include "engine/modValueReaders.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "engine/inputConversion.h"
#include "engine/sourceStepping.h"
#include "engine/valueInput.h"
#include "platform/dialogs.h"

namespace vellumark {

namespace {

struct SourceKind {
    std::string_view type;
    std::string_view atEnd;
    std::string_view atError;
};

constexpr std::array<SourceKind, 5> kKinds = {{
    {"V", "No more data found when reading Generic Value for ", "Error occurred reading Generic Value for "},
    {"D", "End of File occurred reading values from a Delimited Text File for ",
     "Error occurred reading values from a Delimited Text File for "},
    {"P", "End Of File occurred reading values from a Positional Text File for ",
     "Error occurred reading values from a Positional Text File for "},
    {"X", "End Of File occurred reading values from an Excel Spreadsheet for ",
     "Error occurred reading values from an Excel Spreadsheet for "},
    {"O", "No more data found when reading values from an Other Database for ",
     "Error occurred reading values from an Other Database for "},
}};

// Says why there is no value. A type that nobody knows says nothing.
void ShowReadingFailure(const ReaderColumn& column, std::string_view type) {
    for (const SourceKind& kind : kKinds)
        if (kind.type == type)
            platform::ShowCritical(std::string(ReadEndMarker == "EOF" ? kind.atEnd : kind.atError) +
                                   "\n\nTable: " + column.tableName + "\nColumn: " + column.columnName);
}

// Nothing for a type that nobody knows.
std::unique_ptr<ValueInput> MakeInput(const ValueSource& source, const RunOptions& options) {
    if (source.type == "V")
        return GenericValueInput(source);
    if (source.type == "D")
        return DelimitedTextInput(source, options);
    if (source.type == "P")
        return PositionalTextInput(source);
    if (source.type == "X")
        return SpreadsheetInput(source);
    if (source.type == "O")
        return OtherDatabaseInput(source);
    return nullptr;
}

class MissingSource : public ValueReader {
 public:
    explicit MissingSource(const ReaderColumn& column)
        : tableId_(column.tableId), columnName_(column.columnName) {}

    bool fGetAlternateValue(int, std::string&) override {
        return platform::Refuse("Error: Cannot find [Value Source] for Table: " + std::to_string(tableId_) +
                                " Column: " + columnName_);
    }

 private:
    int tableId_;
    std::string columnName_;
};

class SourceReader : public ValueReader {
 public:
    SourceReader(const ReaderColumn& column, ValueSource source);
    ~SourceReader() override;
    SourceReader(const SourceReader&) = delete;
    SourceReader& operator=(const SourceReader&) = delete;

    bool fGetAlternateValue(int row, std::string& value) override;

 private:
    void StartAnew();
    bool fIsReady();
    bool fRead(std::string_view& value);
    bool fChooseRow(int& row);
    bool fChooseCell(int& row, int& column);

    ReaderColumn column_;
    ValueSource source_;
    InputConversion conversion_;
    std::unique_ptr<ValueInput> input_;
    bool opened_ = false;
    bool started_ = false;
    InputSize size_;
    Stretch rows_;
    Stretch columns_;
    ReadingState state_;
};

SourceReader::SourceReader(const ReaderColumn& column, ValueSource source)
    : column_(column),
      source_(std::move(source)),
      conversion_(column_, source_),
      input_(MakeInput(source_, *column.options)) {}

// The rule is done, or the run has stopped: the row tells how far reading came.
SourceReader::~SourceReader() {
    if (!started_)
        return;
    try {
        WriteReadingState(column_, state_);
    } catch (const platform::Error&) {
        // Nobody waits for it: the next pass starts anew.
    }
}

bool SourceReader::fGetAlternateValue(int row, std::string& value) {
    const bool holds = source_.holdFrequency > 1;
    if (row == 1) {
        StartAnew();
    } else if (holds && state_.holdCounter < source_.holdFrequency) {
        ++state_.holdCounter;
        value += state_.lastValue;  // as it was read: it is not converted
        return true;
    } else {
        state_.holdCounter = 0;
    }
    std::string_view text;
    if (!fRead(text)) {
        ShowReadingFailure(column_, source_.type);
        return false;
    }
    if (holds) {
        ++state_.holdCounter;
        state_.lastValue = text;
    }
    conversion_.ConvertInputValue(value, text);
    return true;
}

void SourceReader::StartAnew() {
    started_ = true;
    state_ = {};
    state_.totalRows = size_.totalRows;
    state_.totalColumns = size_.totalColumns;
}

bool SourceReader::fIsReady() {
    if (opened_)
        return true;
    if (!input_ || !input_->fOpen(size_))
        return false;
    opened_ = true;
    state_.totalRows = size_.totalRows;
    state_.totalColumns = size_.totalColumns;
    rows_ = {source_.rows.first, std::min(source_.rows.last, size_.lastRow)};
    columns_ = {source_.columns.first, std::min(source_.columns.last, size_.lastColumn)};
    return true;
}

bool SourceReader::fRead(std::string_view& value) {
    if (!fIsReady() || rows_.first > size_.lastRow)
        return false;
    int row = 0;
    int column = 0;
    if (source_.type != "X")
        return fChooseRow(row) && input_->fReadValue(row, column, value);
    return columns_.first <= size_.lastColumn && fChooseCell(row, column) &&
           input_->fReadValue(row, column, value);
}

bool SourceReader::fChooseRow(int& row) {
    row = source_.order.random ? RandomOf(*column_.random, rows_) : NextFileRow(source_.order, state_, rows_);
    if (row == -1)
        ReadEndMarker = "EOF";
    return row != -1;
}

bool SourceReader::fChooseCell(int& row, int& column) {
    if (source_.order.random) {
        row = RandomOf(*column_.random, rows_);
        column = RandomOf(*column_.random, columns_);
    } else {
        NextSheetCell(source_.order, state_, column, columns_, row, rows_);
    }
    if (row == -1)
        ReadEndMarker = "EOF";
    return row != -1;
}

}  // namespace

std::unique_ptr<ValueReader> MakeValueReader(const ReaderColumn& column) {
    std::optional<ValueSource> source = ReadValueSource(column);
    if (!source)
        return std::make_unique<MissingSource>(column);
    return std::make_unique<SourceReader>(column, std::move(*source));
}

}  // namespace vellumark
