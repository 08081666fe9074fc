#pragma once

#include <cstddef>
#include <string>

#include "tools/modSQLRun.h"

namespace vellumark::test {

// Lists names and rows: fields joined by "|" with Null as "null", rows by line ends.
class ListedRows : public SQLRowSink {
 public:
    void TakeFields(const std::vector<std::string>& names) override;
    bool TakeRow(const platform::Cursor& row) override;

    std::string text;
    std::size_t limit = 1000;  // rows after which it has enough

 private:
    std::size_t rows_ = 0;
    std::size_t columns_ = 0;
};

}  // namespace vellumark::test
