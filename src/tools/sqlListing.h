#pragma once

#include <memory>
#include <ostream>

#include "tools/modSQLRun.h"

// The rows of a statement as text. No more than a block of them is in memory, however many there are.
namespace vellumark {

class SQLListing : public SQLRowSink {
 public:
    // To be called behind the last row. Throws platform::Error as RowStore does.
    virtual void Finish() {}
};

// Comma-separated values with a line of names, as RFC 4180 has them. Null is an empty field, an empty text
// one in quotes.
std::unique_ptr<SQLListing> CsvListing(std::ostream& out);

// Columns side by side under their names, numbers to the right, and the number of rows below. The rows wait
// on disk until it is known how wide they are.
std::unique_ptr<SQLListing> TableListing(std::ostream& out);

}  // namespace vellumark
