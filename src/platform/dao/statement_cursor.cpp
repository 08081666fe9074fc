#include "platform/dao/statement_cursor.h"

#include "platform/number_text.h"

namespace vellumark::dao {

StatementCursor::StatementCursor(Statement statement) : statement_(std::move(statement)) {
    for (int column = 0; column < statement_.ColumnCount(); ++column)
        names_.emplace_back(statement_.ColumnName(column));
    if (names_.empty())
        statement_.Execute();
    reals_.resize(names_.size());
}

bool StatementCursor::Next() {
    if (names_.empty() || !statement_.Step())
        return false;
    for (std::size_t i = 0; i < reals_.size(); ++i) {
        reals_[i].clear();
        const int column = static_cast<int>(i);
        if (statement_.ColumnIsReal(column))
            platform::AppendNumberText(reals_[i], statement_.ColumnReal(column));
    }
    return true;
}

}  // namespace vellumark::dao
