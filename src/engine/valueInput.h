#pragma once

#include <memory>
#include <string_view>

#include "engine/valueSource.h"

namespace vellumark {

// How much there is to read.
struct InputSize {
    int totalRows = 0;
    int totalColumns = 0;  // of spreadsheets
    int lastRow = 0;       // that has data
    int lastColumn = 0;    // likewise
};

// The data behind a Value Source, as rows that count from 1; those of a spreadsheet have columns. It is read
// or indexed once, as far as the source's stretch goes.
class ValueInput {
 public:
    virtual ~ValueInput() = default;

    // False when it can't be opened, which has been shown where there is something to say.
    virtual bool fOpen(InputSize& size) = 0;
    // A value from the source's start to the last row and column; valid until the next call. False when it
    // can't be read, likewise.
    virtual bool fReadValue(int row, int column, std::string_view& value) = 0;
};

std::unique_ptr<ValueInput> GenericValueInput(const ValueSource& source);
std::unique_ptr<ValueInput> DelimitedTextInput(const ValueSource& source, const RunOptions& options);
std::unique_ptr<ValueInput> PositionalTextInput(const ValueSource& source);
std::unique_ptr<ValueInput> SpreadsheetInput(const ValueSource& source);
std::unique_ptr<ValueInput> OtherDatabaseInput(const ValueSource& source);

}  // namespace vellumark
