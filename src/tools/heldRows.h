#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/row_store.h"
#include "tools/tableShape.h"

namespace vellumark {

// Any number of rows, kept on disk, by their place. A changed row is kept once more; memory holds only where
// each one is.
class HeldRows {
 public:
    HeldRows() : store_(std::make_unique<platform::RowStore>()) {}

    std::size_t Count() const { return order_.size(); }
    HeldRow Row(std::size_t place) const;
    void Append(const HeldRow& row);
    void Replace(std::size_t place, const HeldRow& row);
    void Erase(std::size_t place) { order_.erase(order_.begin() + static_cast<std::ptrdiff_t>(place)); }

 private:
    std::uint32_t Keep(const HeldRow& row);

    std::unique_ptr<platform::RowStore> store_;
    std::vector<std::uint32_t> order_;  // places in the store
};

}  // namespace vellumark
