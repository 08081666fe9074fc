#pragma once

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

// Shows why a range can't be a Table rule's and returns false, or returns true. An end of 0 stands for none.
bool fValidTableRange(int start, int end);

// 1 when `end` is 0, else the count of numbers from `start` to `end`. Throws kOverflow beyond 32 bits.
int RangeQuantity(int start, int end);

// "NAME (start-end)", or "NAME (start)" for a single number.
std::string TableRuleLabel(std::string_view tableName, int start, int end);

}  // namespace vellumark
