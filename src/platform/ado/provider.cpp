#include "platform/ado/provider.h"

#include <array>
#include <utility>

#include "platform/ado/connection_string.h"
#include "platform/ado/embedded_provider.h"

namespace vellumark::ado {

std::unique_ptr<Provider> OpenProvider(std::string_view connectionString) {
    const ConnectionString parts(connectionString);
    if (EmbeddedProvider::Serves(parts))
        return std::make_unique<EmbeddedProvider>(parts);
    throw NoProviderError(connectionString);
}

platform::Error NoProviderError(std::string_view connectionString) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> keys = {
        {{"Driver", "driver"},
         {"Provider", "provider"},
         {"DSN", "data source"},
         {"Data Source", "data source"}}};
    const ConnectionString parts(connectionString);
    std::string wanted = "this connection string";
    for (const auto& [key, word] : keys) {
        if (parts.Value(key).empty())
            continue;
        wanted = "the " + std::string(word) + " '" + parts.Value(key) + "'";
        break;
    }
    return platform::Error(kProviderNotFound,
                           "Provider cannot be found. No driver is installed for " + wanted + ".");
}

}  // namespace vellumark::ado
