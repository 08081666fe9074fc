#pragma once

#include "platform/cursor.h"
#include "platform/odbc/handle.h"
#include "platform/running_call.h"

namespace vellumark::odbc {

// The rows of an executed statement; of several statements in one text, those of the first. An error of a
// later one comes up behind them.
class Rows : public platform::Cursor {
 public:
    explicit Rows(Handle statement);

    const std::vector<std::string>& FieldNames() const override { return names_; }
    bool Next() override;
    std::string_view Text(std::size_t column) const override { return fields_[column].text; }
    bool IsNull(std::size_t column) const override { return fields_[column].isNull; }
    bool IsBinary(std::size_t column) const override { return fields_[column].form == SQL_C_BINARY; }

 private:
    struct Field {
        SQLSMALLINT form = SQL_C_CHAR;
        bool isNull = true;
        std::string text;
    };

    void Finish();
    void Describe(SQLUSMALLINT place);
    void Read(SQLUSMALLINT place, Field& field);

    Handle statement_;
    platform::RunningCall call_;
    std::vector<std::string> names_;
    std::vector<Field> fields_;
    std::string buffer_;
    bool ended_ = false;
};

}  // namespace vellumark::odbc
