#pragma once

#include "platform/cursor.h"
#include "platform/dao/statement.h"

namespace vellumark::dao {

// The rows of a statement on the embedded database; one that has none is executed at once.
class StatementCursor : public platform::Cursor {
 public:
    explicit StatementCursor(Statement statement);

    const std::vector<std::string>& FieldNames() const override { return names_; }
    bool Next() override;
    std::string_view Text(std::size_t column) const override {
        return reals_[column].empty() ? statement_.ColumnText(static_cast<int>(column)) : reals_[column];
    }
    bool IsNull(std::size_t column) const override {
        return statement_.ColumnIsNull(static_cast<int>(column));
    }
    bool IsBinary(std::size_t column) const override {
        return statement_.ColumnIsBlob(static_cast<int>(column));
    }

 private:
    Statement statement_;
    std::vector<std::string> names_;
    std::vector<std::string> reals_;  // of the row, which the engine would write in its own way
};

}  // namespace vellumark::dao
