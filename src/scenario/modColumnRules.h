#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "repository/modTargetFormats.h"

// Column rules: how each column of a Table rule gets its value.
namespace vellumark {

// What a column may be apart from plainly included.
enum class ColumnUse { Included, Excluded, Unique, CompoundUnique };

// A Column rule as its screen edits it, and what it needs to know of the column. Codes are the stored ones.
struct ColumnRuleDetails {
    int scenarioId = 0;
    int tableRuleId = 0;
    int ruleId = 0;
    int tableId = 0;
    int columnId = 0;
    std::string columnName;
    DataType dataType = DataType::Character;
    int maximumLength = 0;
    int precision = 0;
    int scale = 0;
    bool optional = false;

    ColumnUse use = ColumnUse::Included;
    std::string generate;  // "D", "V" or "N"
    std::string constant;
    std::string tooLarge;
    std::string fill;
    std::string concat;
    std::string dateTimeIncrement;
    std::string startRange;
    std::string endRange;
    std::string order;
    std::string outputPattern;
    std::string quotes;
    std::string quoteCharacter;
};

// What the rule screen shows of a rule's column and never changes.
struct ColumnProperties {
    std::string attribute;
    std::string dataType;
    std::string adoDataType;
    std::string size;
    bool identifier = false;
    bool isForeignKey = false;
    std::string parentTable;
    std::string parentColumn;
};

// The rule of that column in a Table rule of the current Scenario; nothing, behind a message, when there is
// none.
std::optional<ColumnRuleDetails> ReadColumnRule(int tableRuleId, std::string_view columnName);

// The rule selected on the rule screen, whose table, column and data type become the current ones; nothing
// when none is selected.
std::optional<ColumnRuleDetails> ReadSelectedColumnRule();

ColumnProperties ReadColumnProperties(const ColumnRuleDetails& details);

// The codes of `dateTimeIncrement` that columns of the type may take.
std::string_view IncrementCodes(DataType type);

// Sets the field with that stored name. False, behind a message, for an unknown name, a code that the field's
// list doesn't offer, or a field that the column's data type leaves closed.
bool fSetColumnField(ColumnRuleDetails& details, std::string_view field, const std::string& value);

// The names that fSetColumnField knows.
std::vector<std::string_view> ColumnFieldNames();

enum class ColumnRuleField { None, StartRange, EndRange, Constant, Source };

// The first field at fault, behind a message that says what is wrong.
ColumnRuleField FaultyField(const ColumnRuleDetails& details);

// Stores a rule without fault. An end of the range counts only behind a start.
void StoreColumnRule(const ColumnRuleDetails& details);

// Validates and stores the rule; false, behind a message, leaves what is stored.
bool fUpdateColumnRule(const ColumnRuleDetails& details);

}  // namespace vellumark
