#include "platform/ado/provider.h"

#include "platform/ado/embedded_provider.h"
#include "platform/ado/odbc_provider.h"
#include "platform/connection_string.h"
#include "platform/odbc/driver_string.h"
#include "platform/text.h"

namespace vellumark::ado {

std::string_view Restriction(const Restrictions& restrictions, std::size_t position) {
    if (position >= restrictions.size() || !restrictions[position])
        return {};
    return *restrictions[position];
}

bool Passes(std::string_view name, const Restrictions& restrictions, std::size_t position) {
    const std::string_view wanted = Restriction(restrictions, position);
    return wanted.empty() || platform::EqualsIgnoringCase(name, wanted);
}

Rowset Provider::OpenSchema(SchemaKey key, const Restrictions& restrictions) const {
    switch (key) {
        case SchemaKey::Columns:
            return Columns(restrictions);
        case SchemaKey::Indexes:
            return Indexes(restrictions);
        case SchemaKey::Tables:
            return Tables(restrictions);
        case SchemaKey::ForeignKeys:
            return ForeignKeys(restrictions);
    }
    throw platform::Error(platform::kInvalidProcedureCall, "The database has no such rowset.");
}

std::unique_ptr<Provider> OpenProvider(std::string_view connectionString) {
    const platform::ConnectionString parts(connectionString);
    if (EmbeddedProvider::Serves(parts))
        return std::make_unique<EmbeddedProvider>(parts);
    return std::make_unique<OdbcProvider>(odbc::DriverManagerString(connectionString));
}

}  // namespace vellumark::ado
