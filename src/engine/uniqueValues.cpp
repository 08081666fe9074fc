#include "engine/uniqueValues.h"

#include <algorithm>
#include <functional>

#include "platform/text.h"

namespace vellumark {

bool UniqueValues::Contains(std::string_view text) {
    return slots_[Find(Folded(text))] != kFree;
}

void UniqueValues::Add(std::string_view text) {
    if ((values_.Size() + 1) * 2 > slots_.size())
        Grow();
    const std::string& folded = Folded(text);
    const std::size_t slot = Find(folded);
    values_.Append(folded);
    slots_[slot] = static_cast<std::uint32_t>(values_.Size());
}

const std::string& UniqueValues::Folded(std::string_view text) {
    folded_ = text;
    std::ranges::transform(folded_, folded_.begin(), platform::LowerCase);
    return folded_;
}

// The slot that holds the text, or the free one where it belongs.
std::size_t UniqueValues::Find(std::string_view folded) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = std::hash<std::string_view>{}(folded)&mask;
    while (slots_[slot] != kFree && values_[slots_[slot] - 1] != folded)
        slot = (slot + 1) & mask;
    return slot;
}

void UniqueValues::Grow() {
    slots_.assign(slots_.size() * 2, kFree);
    for (std::size_t i = 0; i < values_.Size(); ++i)
        slots_[Find(values_[i])] = static_cast<std::uint32_t>(i + 1);
}

}  // namespace vellumark
