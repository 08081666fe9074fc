#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/screens/gridRows.h"
#include "platform/text.h"

namespace vellumark {

// Drops the rows in which the text doesn't occur; an empty text keeps all.
inline void KeepMatching(std::vector<GridRow>& rows, std::string_view text) {
    std::erase_if(rows, [&](const GridRow& row) {
        return std::ranges::none_of(
            row.cells, [&](const std::string& cell) { return platform::ContainsIgnoringCase(cell, text); });
    });
}

}  // namespace vellumark
