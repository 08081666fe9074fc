#include "platform/dao/row_access.h"

#include "platform/dao/jet_sql.h"
#include "platform/dao/odbc_type.h"
#include "platform/dao/statement_cursor.h"
#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::dao {

using platform::EqualsIgnoringCase;

std::string EmbeddedRowAccess::Quoted(std::string_view name) const {
    return Bracketed(name);
}

TableDef EmbeddedRowAccess::Definition(std::string_view /*owner*/, std::string_view table) const {
    return database_.TableDefinition(table);
}

std::unique_ptr<platform::Cursor> EmbeddedRowAccess::Query(std::string_view sql,
                                                           const std::vector<Value>& values) const {
    Statement statement = database_.Prepare(sql);
    for (std::size_t i = 0; i < values.size(); ++i)
        statement.Bind(static_cast<int>(i), values[i]);
    return std::make_unique<StatementCursor>(std::move(statement));
}

std::string OdbcRowAccess::Quoted(std::string_view name) const {
    const std::string quote(platform::Trim(connection_.Info(SQL_IDENTIFIER_QUOTE_CHAR)));
    return quote.empty() ? std::string(name) : quote + platform::Replace(name, quote, quote + quote) + quote;
}

// A table of that very name where there is one, or else one whose name differs in case.
odbc::CatalogTable OdbcRowAccess::Find(std::string_view owner, std::string_view table) const {
    const std::vector<odbc::CatalogTable> tables = catalog_.Tables();
    const odbc::CatalogTable* found = nullptr;
    for (const odbc::CatalogTable& each : tables) {
        if (!EqualsIgnoringCase(each.name, table) ||
            !(owner.empty() || EqualsIgnoringCase(each.owner, owner)))
            continue;
        if (found == nullptr || (each.name == table && (owner.empty() || each.owner == owner)))
            found = &each;
    }
    if (found == nullptr)
        throw platform::Error(platform::kNoSuchItem,
                              "Item not found in this collection: '" + std::string(table) + "'.");
    return *found;
}

TableDef OdbcRowAccess::Definition(std::string_view owner, std::string_view table) const {
    const odbc::CatalogTable entry = Find(owner, table);
    TableDef definition{entry.name, ReadOdbcFields(catalog_.Columns(entry)), {}};
    for (odbc::CatalogIndex& index : catalog_.Indexes(entry))
        definition.indexes.push_back(
            {std::move(index.name), index.primary, index.unique, std::move(index.columns)});
    return definition;
}

std::unique_ptr<platform::Cursor> OdbcRowAccess::Query(std::string_view sql,
                                                       const std::vector<Value>& values) const {
    odbc::Parameters parameters;
    for (const Value& value : values)
        parameters.push_back(ToOdbc(value));
    return connection_.Query(sql, parameters);
}

odbc::Parameter ToOdbc(const Value& value) {
    if (dao::IsNull(value))
        return {"", SQL_C_DEFAULT};
    return {ToText(value),
            std::holds_alternative<Blob>(value) ? SQLSMALLINT{SQL_C_BINARY} : SQLSMALLINT{SQL_C_CHAR}};
}

}  // namespace vellumark::dao
