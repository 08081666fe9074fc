#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dao/value.h"

namespace vellumark::ado {

// Rows that a provider reports about a database, held in memory, with a current row. Reading a field where no
// row stands throws kNoCurrentRecord, an unknown field kNoSuchItem.
class Rowset {
 public:
    explicit Rowset(std::vector<std::string> fields) : fields_(std::move(fields)) {}

    // One value for each field, in their order.
    void Add(std::vector<dao::Value> values) { rows_.push_back(std::move(values)); }

    bool IsEOF() const { return at_ >= rows_.size(); }
    void MoveNext() { ++at_; }

    const dao::Value& Get(std::string_view field) const;
    int Long(std::string_view field) const { return dao::ToLong(Get(field)); }
    bool Boolean(std::string_view field) const { return dao::ToBoolean(Get(field)); }
    std::string Text(std::string_view field) const { return dao::ToText(Get(field)); }
    bool IsNull(std::string_view field) const { return dao::IsNull(Get(field)); }

 private:
    std::vector<std::string> fields_;
    std::vector<std::vector<dao::Value>> rows_;
    std::size_t at_ = 0;
};

}  // namespace vellumark::ado
