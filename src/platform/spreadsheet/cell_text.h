#pragma once

#include <string>
#include <string_view>

// How the content of a cell reads as text.
namespace vellumark::platform {

inline constexpr std::string_view kTrueText = "True";
inline constexpr std::string_view kFalseText = "False";

// A date as spreadsheets keep it: days since 1899-12-30, or since 1904-01-01 in files that say so. Below one
// day it is a time. What is no date of the years up to 9999 is given as the number.
void AppendSerialDate(std::string& out, double serial, bool from1904);

// "YYYY-MM-DD" or "YYYY-MM-DDTHH:MM:SS.f", rounded to a second; midnight is left out. Any other text stays as
// it is.
void AppendIsoDate(std::string& out, std::string_view text);

// "PT12H30M15S" as "12:30:15"; any other text stays as it is.
void AppendIsoDuration(std::string& out, std::string_view text);

enum class CellFormat : unsigned char { Number, Date, Boolean };

// What a number format, such as "dd/mm/yy" or "0.00", makes of a number.
CellFormat FormatOfCode(std::string_view code);
// The same for a format known by its number.
CellFormat BuiltInFormat(int id);

void AppendFormatted(std::string& out, double number, CellFormat format, bool from1904);

}  // namespace vellumark::platform
