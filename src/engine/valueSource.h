#pragma once

#include <optional>
#include <string>

#include "engine/modValueReaders.h"

// A row of [Value Source]: where the values of a Column rule come from and how far reading has come.
namespace vellumark {

// Rows or columns, from the first to the last of them.
struct Stretch {
    int first = 1;
    int last = 1;
};

enum class EndOfValues { Stop, Hold, Loop };

// How a reader goes from value to value.
struct ReadOrder {
    bool random = false;
    int interval = 1;  // between rows read in order; 0 stays at the first
    EndOfValues atEnd = EndOfValues::Stop;
};

struct ValueSource {
    std::string type;  // "V", "D", "P", "X" or "O"
    int categoryId = 0;
    int conversionId = 0;
    int connectionId = 0;
    std::string path;
    std::string sheet;
    Stretch rows;  // their last one may lie behind the data, or be 0
    Stretch columns;
    std::string rowEndCell;
    std::string columnEndCell;
    std::string delimiter;  // empty for that of the options
    int fieldNumber = 1;
    ReadOrder order;
    int holdFrequency = 0;  // above 1, each value read serves that many rows
    std::string quotesCode;
    std::string datetimePattern;
};

// The columns "temp ..." of the row.
struct ReadingState {
    std::string lastValue;
    int holdCounter = 0;
    int lastRow = 0;  // 0 before the first step, -1 behind the end
    int lastColumn = 0;
    int totalRows = 0;
    int totalColumns = 0;
};

// Nothing when the column has no such row.
std::optional<ValueSource> ReadValueSource(const ReaderColumn& column);

void WriteReadingState(const ReaderColumn& column, const ReadingState& state);

}  // namespace vellumark
