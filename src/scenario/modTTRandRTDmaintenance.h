#pragma once

#include <optional>
#include <string>
#include <string_view>

// Table rules of an Insert Scenario.
namespace vellumark {

// How often a new rule tries for another value of a unique column.
inline constexpr int kRetryCount = 1000;

// The display label of the Table rule that AddTableRule made last.
inline std::string LastTableRuleLabel;

// Adds a Table rule for the table to the current Scenario, with a Column rule for each of its columns: in the
// System Scenario with the defaults, else as the System Scenario has them. Returns the rule's Id. Throws
// platform::Error, kOverflow for a range that holds more rows than a 32-bit number counts.
int AddTableRule(int tabId, int startRange, int endRange, bool useGenerated);

// Removes a Table rule of the current Scenario with its Column rules, their Value Sources and its
// Dependencies, and the rules that only stood for the rows these referred to.
void RemoveTableRule(int ruleId);

// A Table rule as the rule screen edits it.
struct TTRDetails {
    std::string tableName;
    std::string owner;
    int startRange = 0;
    int endRange = 0;
    int quantity = 0;

    bool operator==(const TTRDetails&) const = default;
};

// The rule selected on the rule screen; nothing when none is, or when it is gone.
std::optional<TTRDetails> displayTTRDetails();
// Stores the range of the selected rule with the Quantity that follows from it; `details` gets the Quantity.
// False behind a message.
bool updateTTRDetails(TTRDetails& details);

// The number that a range's field holds, an empty one 0. Nothing, behind a message, beyond 32 bits.
std::optional<int> fRangeNumber(std::string_view text);

// Shows why a range can't be a Table rule's and returns false, or returns true. An end of 0 stands for none.
bool fValidTableRange(int start, int end);

// 1 when `end` is 0, else the count of numbers from `start` to `end`. Throws kOverflow beyond 32 bits.
int RangeQuantity(int start, int end);

// "NAME (start-end)", or "NAME (start)" for a single number.
std::string TableRuleLabel(std::string_view tableName, int start, int end);

}  // namespace vellumark
