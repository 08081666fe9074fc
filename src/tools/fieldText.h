#pragma once

#include <string>
#include <string_view>

#include "tools/tableShape.h"

// Fields of a database as a person reads and types them.
namespace vellumark {

// More bytes than these are shown by their start and their number.
inline constexpr std::size_t kMostBytesShown = 64;

// Bytes as "0x00FF", Null as empty text.
std::string FieldText(const HeldField& field);
// Whether FieldText shows all of it, so that it can be typed over.
bool ShowsWhole(const HeldField& field);

// What was typed for a column. Throws kConversionError for bytes that are no such digits and, where the
// database itself would take anything, for what is no value of the column's type.
HeldField FieldFromText(std::string_view text, const ShownColumn& column, bool judge);

}  // namespace vellumark
