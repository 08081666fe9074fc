#include "platform/odbc/rows.h"

#include <cstring>

namespace vellumark::odbc {

namespace {

constexpr std::size_t kBufferSize = 8192;

bool IsBinaryType(SQLSMALLINT sqlType) {
    return sqlType == SQL_BINARY || sqlType == SQL_VARBINARY || sqlType == SQL_LONGVARBINARY;
}

}  // namespace

Rows::Rows(Handle statement)
    : statement_(std::move(statement)), call_(Cancelling(statement_)), buffer_(kBufferSize, '\0') {
    SQLSMALLINT columns = 0;
    Check(SQLNumResultCols(statement_.get(), &columns), statement_);
    for (SQLSMALLINT place = 1; place <= columns; ++place)
        Describe(static_cast<SQLUSMALLINT>(place));
    if (columns == 0)
        Finish();
}

void Rows::Finish() {
    ended_ = true;
    SQLRETURN code = SQL_SUCCESS;
    while (SQL_SUCCEEDED(code))
        code = SQLMoreResults(statement_.get());
    if (code != SQL_NO_DATA)
        ThrowDiagnostics(statement_);
}

void Rows::Describe(SQLUSMALLINT place) {
    char name[512] = {};
    SQLSMALLINT length = 0, type = 0, digits = 0, nullable = 0;
    SQLULEN size = 0;
    Check(SQLDescribeCol(statement_.get(), place, Bytes({name, sizeof name}), sizeof name, &length, &type,
                         &size, &digits, &nullable),
          statement_);
    names_.emplace_back(name);
    fields_.push_back({IsBinaryType(type) ? SQLSMALLINT{SQL_C_BINARY} : SQLSMALLINT{SQL_C_CHAR}, true, {}});
}

bool Rows::Next() {
    if (ended_)
        return false;
    const SQLRETURN code = SQLFetch(statement_.get());
    if (code == SQL_NO_DATA) {
        Finish();
        return false;
    }
    Check(code, statement_);
    // In the columns' order, since many drivers can't go back.
    SQLUSMALLINT place = 0;
    for (Field& field : fields_)
        Read(++place, field);
    return true;
}

// A value longer than the buffer comes in pieces.
void Rows::Read(SQLUSMALLINT place, Field& field) {
    const bool isText = field.form == SQL_C_CHAR;
    const std::size_t room = isText ? kBufferSize - 1 : kBufferSize;
    field.text.clear();
    field.isNull = false;
    while (true) {
        SQLLEN length = 0;
        const SQLRETURN code =
            SQLGetData(statement_.get(), place, field.form, buffer_.data(), kBufferSize, &length);
        if (code == SQL_NO_DATA)
            return;
        Check(code, statement_);
        field.isNull = length == SQL_NULL_DATA;
        if (field.isNull)
            return;
        const bool isLast = length != SQL_NO_TOTAL && static_cast<std::size_t>(length) <= room;
        // A driver that can't tell the total may leave some room.
        const std::size_t piece = isText && length == SQL_NO_TOTAL ? strnlen(buffer_.data(), room) : room;
        field.text.append(buffer_, 0, isLast ? static_cast<std::size_t>(length) : piece);
        if (isLast)
            return;
    }
}

}  // namespace vellumark::odbc
