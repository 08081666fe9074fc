#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/modTargetFormat.h"
#include "engine/modValueReaders.h"
#include "engine/movingMoment.h"
#include "engine/randomStream.h"
#include "engine/runOptions.h"
#include "engine/textBuffer.h"
#include "platform/calendar.h"
#include "platform/dao/recordset.h"
#include "repository/modValueValidation.h"

// A Table rule and its Column rules, read once for all the rows they make.
namespace vellumark {

struct RowRange {
    int start = 0;
    int end = 0;
};

enum class NumberKind { RowRange, Sequence, Random };

// The number that stands in values which have none of their own.
struct NumberPlan {
    NumberKind kind = NumberKind::RowRange;
    RowRange range;

    // Making it matters even where the value does without: it draws from the random stream, or fails.
    bool HasEffect() const;
};

enum class ValueKind { Fixed, Stored, Reader, NameAndNumber, Number, Date, Time, Timestamp, Boolean };

struct ColumnPlan {
    int ruleId = 0;
    int columnId = 0;
    std::string name;
    std::string dataTypeName;  // as it is stored
    std::optional<DataType> dataType;
    ColumnWidths widths;
    bool isNull = false;
    bool marked = false;  // its values lie in the Working database
    bool unique = false;
    bool compoundUnique = false;

    NumberPlan number;
    ValueKind kind = ValueKind::Fixed;
    std::string text;                                      // the value of Fixed
    std::size_t storedPlace = 0;                           // of Stored, in the Working database's rows
    std::array<std::string, 2> literals;                   // True and False of Boolean
    MovingMoment moment;                                   // of Date and Timestamp
    platform::MoveUnit unit = platform::MoveUnit::Second;  // of Time
    EditPattern outputPattern;
    std::unique_ptr<ValueReader> reader;

    std::string concat;  // "B" or "E" joins the number to the value
    std::string fill;    // "B" or "E" fills the column
    std::string fillCharacter;
    TooLargeRule tooLarge;
    // The value stays as it is made: nothing is joined to it and it fits its column.
    bool finished = false;

    std::string quote;  // in delimited text

    // The same for every row.
    bool IsConstant() const { return kind == ValueKind::Fixed && finished; }
};

struct TablePlan {
    int ruleId = 0;
    int tableId = 0;
    std::string owner;
    std::string name;
    int quantity = 0;
    RowRange range;
    bool usesGeneratedData = false;
    int retryCount = 0;
    std::vector<ColumnPlan> columns;
};

class WorkingReader;

// What values are made with.
struct ValueContext {
    const RunOptions* options = nullptr;
    TargetFormat format = TargetFormat::Delimited;
    RandomStream* random = nullptr;
    const WorkingReader* stored = nullptr;  // stands on the row under way
    NumberText rangeDigits;                 // of the row's number in the rule's range
    NumberText ownDigits;                   // of a column's own number
    std::string scratch;                    // for values that take more than one step
};

// The rule without its columns. Throws kNoCurrentRecord when its table is gone.
TablePlan ReadTableRule(const dao::Recordset& rule);

// Where the values of marked columns come from.
enum class MarkedColumns { Made, Stored };

// Adds the Column rules that `condition` picks, in `Sort Order`.
void ReadColumnRules(TablePlan& table, std::string_view condition, ValueContext& context,
                     MarkedColumns marked);

}  // namespace vellumark
