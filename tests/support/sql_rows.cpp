#include "sql_rows.h"

namespace vellumark::test {

void ListedRows::TakeFields(const std::vector<std::string>& names) {
    columns_ = names.size();
    for (std::size_t i = 0; i < columns_; ++i)
        text += (i == 0 ? "" : "|") + names[i];
    text += "\n";
}

bool ListedRows::TakeRow(const platform::Cursor& row) {
    for (std::size_t i = 0; i < columns_; ++i)
        text.append(i == 0 ? "" : "|").append(row.IsNull(i) ? "null" : row.Text(i));
    text += "\n";
    return ++rows_ < limit;
}

}  // namespace vellumark::test
