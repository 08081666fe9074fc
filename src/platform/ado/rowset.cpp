#include "platform/ado/rowset.h"

#include <algorithm>

#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::ado {

const dao::Value& Rowset::Get(std::string_view field) const {
    if (IsEOF())
        throw platform::Error(platform::kNoCurrentRecord, "No current record.");
    const auto found = std::ranges::find_if(
        fields_, [&](const std::string& name) { return platform::EqualsIgnoringCase(name, field); });
    if (found == fields_.end())
        throw platform::Error(platform::kNoSuchItem,
                              "Item not found in this collection: '" + std::string(field) + "'.");
    return rows_[at_].at(static_cast<std::size_t>(found - fields_.begin()));
}

}  // namespace vellumark::ado
