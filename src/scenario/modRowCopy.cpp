#include "scenario/modRowCopy.h"

namespace vellumark {

void CopyFields(const dao::Recordset& source, dao::Recordset& target,
                const std::vector<std::string_view>& fields) {
    for (const std::string_view field : fields)
        target.Set(field, source.Get(field));
}

}  // namespace vellumark
