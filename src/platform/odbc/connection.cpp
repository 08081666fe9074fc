#include "platform/odbc/connection.h"

#include "platform/connection_string.h"
#include "platform/error.h"
#include "platform/odbc/rows.h"
#include "platform/running_call.h"
#include "platform/text.h"

namespace vellumark::odbc {

namespace {

constexpr std::size_t kLoginSeconds = 15;
constexpr SQLULEN kLongestPlainText = 4000;

SQLPOINTER AsPointer(std::size_t number) {
    return reinterpret_cast<SQLPOINTER>(number);
}

// Attributes of the PostgreSQL driver: whether it fetches through a cursor, and how many rows at a time.
constexpr SQLINTEGER kUseDeclareFetch = 65539;
constexpr SQLINTEGER kFetch = 65541;
constexpr std::size_t kRowsAtATime = 1000;

// Statements executed while it stands go through a cursor.
class DeclareFetch {
 public:
    explicit DeclareFetch(const Handle& connection) : connection_(connection) {
        Set(kFetch, kRowsAtATime);
        Set(kUseDeclareFetch, 1);
    }
    ~DeclareFetch() { Set(kUseDeclareFetch, 0); }
    DeclareFetch(const DeclareFetch&) = delete;
    DeclareFetch& operator=(const DeclareFetch&) = delete;

 private:
    void Set(SQLINTEGER attribute, std::size_t value) {
        SQLSetConnectAttr(connection_.get(), attribute, AsPointer(value), SQL_IS_UINTEGER);
    }

    const Handle& connection_;
};

void SwitchAutocommit(const Handle& connection, SQLUINTEGER how) {
    SQLSetConnectAttr(connection.get(), SQL_ATTR_AUTOCOMMIT, AsPointer(how), SQL_IS_UINTEGER);
}

// A cursor lives in a transaction, which the driver leaves open, or broken behind an error, unless it is
// ours.
void EndCursor(const Handle& connection) {
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection.get(), SQL_COMMIT)))
        SQLEndTran(SQL_HANDLE_DBC, connection.get(), SQL_ROLLBACK);
    SwitchAutocommit(connection, SQL_AUTOCOMMIT_ON);
}

class CursorRows : public platform::Cursor {
 public:
    CursorRows(std::unique_ptr<platform::Cursor> rows, const Handle& connection)
        : rows_(std::move(rows)), connection_(connection) {}
    ~CursorRows() override {
        rows_.reset();
        EndCursor(connection_);
    }
    CursorRows(const CursorRows&) = delete;
    CursorRows& operator=(const CursorRows&) = delete;

    const std::vector<std::string>& FieldNames() const override { return rows_->FieldNames(); }
    bool Next() override { return rows_->Next(); }
    std::string_view Text(std::size_t column) const override { return rows_->Text(column); }
    bool IsNull(std::size_t column) const override { return rows_->IsNull(column); }
    bool IsBinary(std::size_t column) const override { return rows_->IsBinary(column); }

 private:
    std::unique_ptr<platform::Cursor> rows_;
    const Handle& connection_;
};

bool IsAutocommit(const Handle& connection) {
    SQLUINTEGER on = 0;
    const SQLRETURN code =
        SQLGetConnectAttr(connection.get(), SQL_ATTR_AUTOCOMMIT, &on, SQL_IS_UINTEGER, nullptr);
    return SQL_SUCCEEDED(code) && on == SQL_AUTOCOMMIT_ON;
}

// A cursor can be declared for nothing else, least of all for several statements.
bool IsPlainSelect(std::string_view sql) {
    constexpr std::string_view blanks = "; \t\r\n";
    const std::size_t first = sql.find_first_not_of(blanks);
    if (first == sql.npos || !platform::StartsWithIgnoringCase(sql.substr(first), "select"))
        return false;
    const std::string_view statement = sql.substr(first, sql.find_last_not_of(blanks) + 1 - first);
    return statement.find(';') == statement.npos && !platform::ContainsIgnoringCase(statement, "into");
}

// Some drivers cut a text of a common type to the size that the type has at most.
SQLSMALLINT TypeFor(const Parameter& parameter) {
    const bool isLong = parameter.value.size() > kLongestPlainText;
    if (parameter.form == SQL_C_BINARY)
        return isLong ? SQL_LONGVARBINARY : SQL_VARBINARY;
    return isLong ? SQL_LONGVARCHAR : SQL_VARCHAR;
}

// `length` stays where it is until the statement has run.
void Bind(const Handle& statement, SQLUSMALLINT place, const Parameter& parameter, SQLLEN& length) {
    const bool isNull = parameter.form == SQL_C_DEFAULT;
    length = isNull ? SQL_NULL_DATA : static_cast<SQLLEN>(parameter.value.size());
    Check(SQLBindParameter(statement.get(), place, SQL_PARAM_INPUT,
                           isNull ? SQLSMALLINT{SQL_C_CHAR} : parameter.form, TypeFor(parameter),
                           parameter.value.size() + 1, 0, Bytes(parameter.value),
                           static_cast<SQLLEN>(parameter.value.size()), &length),
          statement);
}

// By the class of the state, or the words of MariaDB's driver, whose state doesn't always tell.
bool IsLost(const platform::Error& error) {
    const std::string text = error.Description();
    return text.starts_with("[08") || text.find("Lost connection to server") != text.npos;
}

}  // namespace

Connection::Connection(const std::string& connectionString)
    : environment_(NewHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE)),
      connection_(NewHandle(SQL_HANDLE_DBC, environment_.get())) {
    Open(connectionString);
    executor_ = NewStatement();
    const std::string system = Info(SQL_DBMS_NAME);
    declaresCursors_ = system == "PostgreSQL";
    takesSeveral_ = declaresCursors_ || system == "MariaDB" || system == "MySQL";
}

void Connection::Open(const std::string& connectionString) {
    // A driver that has no such limit simply waits longer.
    SQLSetConnectAttr(connection_.get(), SQL_ATTR_LOGIN_TIMEOUT, AsPointer(kLoginSeconds), SQL_IS_UINTEGER);
    try {
        Check(SQLDriverConnect(connection_.get(), nullptr, Bytes(connectionString), SQL_NTS, nullptr, 0,
                               nullptr, SQL_DRIVER_NOPROMPT),
              connection_);
    } catch (const platform::Error& error) {
        // A driver may repeat parts of its string in words of its own.
        throw platform::Error(error.Number(), platform::MaskPasswords(error.Description(), connectionString));
    }
}

Connection::~Connection() {
    executor_.reset();
    // With a transaction open it would not let go.
    SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_ROLLBACK);
    SQLDisconnect(connection_.get());
}

void Connection::Execute(std::string_view sql) {
    CheckAlive();
    SQLRETURN code = SQLExecDirect(executor_.get(), Bytes(sql), static_cast<SQLINTEGER>(sql.size()));
    // Of several statements in one text, each one's error comes up with its result.
    while (SQL_SUCCEEDED(code))
        code = SQLMoreResults(executor_.get());
    if (code != SQL_NO_DATA)
        Fail(executor_);
    SQLFreeStmt(executor_.get(), SQL_CLOSE);
}

std::unique_ptr<platform::Cursor> Connection::Query(std::string_view sql,
                                                    const Parameters& parameters) const {
    Handle statement = NewStatement();
    std::vector<SQLLEN> lengths(parameters.size());
    for (std::size_t i = 0; i < parameters.size(); ++i)
        Bind(statement, static_cast<SQLUSMALLINT>(i + 1), parameters[i], lengths[i]);
    {
        const platform::RunningCall call(Cancelling(statement));
        const SQLRETURN code =
            SQLExecDirect(statement.get(), Bytes(sql), static_cast<SQLINTEGER>(sql.size()));
        if (code != SQL_NO_DATA)
            Check(code, statement);
    }
    return std::make_unique<Rows>(std::move(statement));
}

std::unique_ptr<platform::Cursor> Connection::Stream(std::string_view sql) const {
    if (!declaresCursors_ || !IsPlainSelect(sql) || !IsAutocommit(connection_))
        return Query(sql);
    SwitchAutocommit(connection_, SQL_AUTOCOMMIT_OFF);
    try {
        const DeclareFetch cursor(connection_);
        return std::make_unique<CursorRows>(Query(sql), connection_);
    } catch (...) {
        EndCursor(connection_);
        throw;
    }
}

// MariaDB's driver waits for ever when it is asked again over a line that broke between two results.
void Connection::CheckAlive() const {
    if (lost_)
        throw *lost_;
}

void Connection::Fail(const Handle& handle) {
    try {
        ThrowDiagnostics(handle);
    } catch (const platform::Error& error) {
        if (IsLost(error))
            lost_ = error;
        throw;
    }
}

void Connection::Begin() {
    CheckAlive();
    SetAutocommit(false);
}

void Connection::EndTransaction(SQLSMALLINT how) {
    CheckAlive();
    const SQLRETURN code = SQLEndTran(SQL_HANDLE_DBC, connection_.get(), how);
    if (SQL_SUCCEEDED(code))
        return SetAutocommit(true);
    try {
        ThrowDiagnostics(connection_);
    } catch (...) {
        // What failed to commit must not be committed by the switch.
        SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_ROLLBACK);
        SQLSetConnectAttr(connection_.get(), SQL_ATTR_AUTOCOMMIT, AsPointer(SQL_AUTOCOMMIT_ON),
                          SQL_IS_UINTEGER);
        throw;
    }
}

void Connection::SetAutocommit(bool on) {
    Check(SQLSetConnectAttr(connection_.get(), SQL_ATTR_AUTOCOMMIT,
                            AsPointer(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER),
          connection_);
}

std::string Connection::Info(SQLUSMALLINT item) const {
    char text[1024] = {};
    SQLSMALLINT length = 0;
    const SQLRETURN code = SQLGetInfo(connection_.get(), item, text, sizeof text, &length);
    return SQL_SUCCEEDED(code) ? std::string(text) : std::string();
}

std::string Connection::ServerName() const {
    return Info(SQL_DBMS_NAME) + " " + Info(SQL_DBMS_VER) + " through " + Info(SQL_DRIVER_NAME) + " " +
           Info(SQL_DRIVER_VER);
}

std::string Connection::CurrentCatalog() const {
    char text[1024] = {};
    SQLINTEGER length = 0;
    const SQLRETURN code =
        SQLGetConnectAttr(connection_.get(), SQL_ATTR_CURRENT_CATALOG, text, sizeof text, &length);
    return SQL_SUCCEEDED(code) ? std::string(text) : std::string();
}

}  // namespace vellumark::odbc
