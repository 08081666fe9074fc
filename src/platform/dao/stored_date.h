#pragma once

#include <string>
#include <string_view>

#include "platform/dao/declared_type.h"

namespace vellumark::dao {

// How a column keeps dates and times.
enum class DateForm {
    None,    // it holds other values
    Day,     // "YYYY-MM-DD", with a time behind it only when there is one
    Moment,  // "YYYY-MM-DD HH:MM:SS"
    Time,    // "HH:MM:SS"
};

DateForm DateFormOf(const ColumnType& type);

// Appends the stored form of a date, a time or both in one of the ways that databases write them:
// "2001-02-03", "2001-02-03-04.05.06.000000", "Feb 3 2001 04:05AM", "04:05:06" and their mixtures. False, and
// nothing appended, for any other text.
bool AppendStoredDate(std::string& out, DateForm form, std::string_view text);

}  // namespace vellumark::dao
