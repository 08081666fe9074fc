#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_list.h"

namespace vellumark {

// A set of texts that differ in more than ASCII case: the values of a rule that must not repeat.
class UniqueValues {
 public:
    bool Contains(std::string_view text);
    // The text must not be in the set.
    void Add(std::string_view text);

 private:
    static constexpr std::uint32_t kFree = 0;

    const std::string& Folded(std::string_view text);
    std::size_t Find(std::string_view folded) const;
    void Grow();

    platform::TextList values_;
    std::vector<std::uint32_t> slots_ = std::vector<std::uint32_t>(1024, kFree);  // place in values_, from 1
    std::string folded_;
};

}  // namespace vellumark
