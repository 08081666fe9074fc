#include "platform/odbc/connection.h"

#include "platform/odbc/rows.h"

namespace vellumark::odbc {

namespace {

constexpr std::size_t kLoginSeconds = 15;

SQLPOINTER AsPointer(std::size_t number) {
    return reinterpret_cast<SQLPOINTER>(number);
}

}  // namespace

Connection::Connection(const std::string& connectionString)
    : environment_(NewHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE)),
      connection_(NewHandle(SQL_HANDLE_DBC, environment_.get())) {
    // A driver that has no such limit simply waits longer.
    SQLSetConnectAttr(connection_.get(), SQL_ATTR_LOGIN_TIMEOUT, AsPointer(kLoginSeconds), SQL_IS_UINTEGER);
    Check(SQLDriverConnect(connection_.get(), nullptr, Bytes(connectionString), SQL_NTS, nullptr, 0, nullptr,
                           SQL_DRIVER_NOPROMPT),
          connection_);
    executor_ = NewStatement();
    const std::string system = Info(SQL_DBMS_NAME);
    takesSeveral_ = system == "PostgreSQL" || system == "MariaDB" || system == "MySQL";
}

Connection::~Connection() {
    executor_.reset();
    // With a transaction open it would not let go.
    SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_ROLLBACK);
    SQLDisconnect(connection_.get());
}

void Connection::Execute(std::string_view sql) {
    SQLRETURN code = SQLExecDirect(executor_.get(), Bytes(sql), static_cast<SQLINTEGER>(sql.size()));
    // Of several statements in one text, each one's error comes up with its result.
    while (SQL_SUCCEEDED(code))
        code = SQLMoreResults(executor_.get());
    if (code != SQL_NO_DATA)
        ThrowDiagnostics(executor_);
    SQLFreeStmt(executor_.get(), SQL_CLOSE);
}

std::unique_ptr<platform::Cursor> Connection::Query(std::string_view sql,
                                                    const std::vector<std::string>& parameters) const {
    Handle statement = NewStatement();
    std::vector<SQLLEN> lengths;
    lengths.reserve(parameters.size());
    for (const std::string& parameter : parameters) {
        lengths.push_back(static_cast<SQLLEN>(parameter.size()));
        const auto place = static_cast<SQLUSMALLINT>(lengths.size());
        Check(SQLBindParameter(statement.get(), place, SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR,
                               parameter.size() + 1, 0, Bytes(parameter), lengths.back(), &lengths.back()),
              statement);
    }
    const SQLRETURN code = SQLExecDirect(statement.get(), Bytes(sql), static_cast<SQLINTEGER>(sql.size()));
    if (code != SQL_NO_DATA)
        Check(code, statement);
    return std::make_unique<Rows>(std::move(statement));
}

void Connection::Begin() {
    SetAutocommit(false);
}

void Connection::EndTransaction(SQLSMALLINT how) {
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
