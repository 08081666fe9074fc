#pragma once

#include "platform/cursor.h"
#include "platform/odbc/handle.h"

namespace vellumark::odbc {

// The rows of an executed statement.
class Rows : public platform::Cursor {
 public:
    explicit Rows(Handle statement);

    const std::vector<std::string>& FieldNames() const override { return names_; }
    bool Next() override;
    std::string_view Text(std::size_t column) const override { return fields_[column].text; }
    bool IsNull(std::size_t column) const override { return fields_[column].isNull; }

 private:
    struct Field {
        SQLSMALLINT form = SQL_C_CHAR;
        bool isNull = true;
        std::string text;
    };

    void Describe(SQLUSMALLINT place);
    void Read(SQLUSMALLINT place, Field& field);

    Handle statement_;
    std::vector<std::string> names_;
    std::vector<Field> fields_;
    std::string buffer_;
};

}  // namespace vellumark::odbc
