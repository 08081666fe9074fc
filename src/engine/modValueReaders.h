#pragma once

#include <memory>
#include <string>

#include "engine/randomStream.h"
#include "engine/runOptions.h"
#include "repository/modEditPatterns.h"
#include "repository/modTargetFormats.h"

// Values that a Column rule takes from a Value Source.
namespace vellumark {

// Set to "EOF" by a reader that has no next row; it stays so until the program ends.
inline std::string ReadEndMarker;

// The column that a reader serves.
struct ReaderColumn {
    int tableRuleId = 0;
    int columnRuleId = 0;
    int tableId = 0;
    int columnId = 0;
    std::string tableName;
    std::string columnName;
    DataType dataType = DataType::Character;
    TargetFormat format = TargetFormat::Delimited;
    EditPattern outputPattern;
    const RunOptions* options = nullptr;
    RandomStream* random = nullptr;
};

// One Value Source during one pass over its Table rule.
class ValueReader {
 public:
    virtual ~ValueReader() = default;

    // Appends the value for that row of the Table rule, counted from 1; row 1 starts the reading anew. False
    // behind a message when there is none; ReadEndMarker tells whether the data came to its end.
    virtual bool fGetAlternateValue(int row, std::string& value) = 0;
};

// Never empty: a Value Source that is missing or of a kind that can't be read makes a reader that says so.
std::unique_ptr<ValueReader> MakeValueReader(const ReaderColumn& column);

}  // namespace vellumark
