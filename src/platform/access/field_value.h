#pragma once

#include <sqlite3.h>
#include <string>

#include "platform/access/rows.h"

namespace vellumark::access {

// Gives a field of the row to the data engine, as our own stores hold such values. Numbers with decimals that
// its floating point can't hold exactly become text. `buffer` is room to work in.
void GiveField(sqlite3_context* result, File& file, const Rows& rows, const Column& column,
               std::string& buffer);

}  // namespace vellumark::access
