#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::platform {

// Many texts in one piece of memory.
class TextList {
 public:
    void Append(std::string_view text) {
        bytes_ += text;
        ends_.push_back(bytes_.size());
    }

    std::size_t Size() const { return ends_.size(); }
    // Valid until the next Append.
    std::string_view operator[](std::size_t index) const {
        const std::size_t start = index == 0 ? 0 : ends_[index - 1];
        return std::string_view(bytes_).substr(start, ends_[index] - start);
    }

 private:
    std::string bytes_;
    std::vector<std::size_t> ends_;
};

}  // namespace vellumark::platform
