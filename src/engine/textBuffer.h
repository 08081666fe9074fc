#pragma once

#include <charconv>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

namespace vellumark {

// The digits of a number; columns of one row mostly ask for the same.
class NumberText {
 public:
    std::string_view Of(int number) {
        if (number != number_) {
            number_ = number;
            length_ = static_cast<std::size_t>(std::to_chars(digits_, digits_ + sizeof digits_, number).ptr -
                                               digits_);
        }
        return {digits_, length_};
    }

 private:
    int number_ = 0;
    char digits_[32] = "0";
    std::size_t length_ = 1;
};

// Text put together from many short pieces, kept from row to row so that nothing is allocated on the way.
class TextBuffer {
 public:
    std::size_t Size() const { return static_cast<std::size_t>(end_ - storage_.data()); }
    std::string_view View() const { return {storage_.data(), Size()}; }
    void Clear() { end_ = storage_.data(); }
    void CutTo(std::size_t size) { end_ = storage_.data() + size; }

    void Append(std::string_view text) {
        MakeRoom(text.size());
        CopyShort(end_, text.data(), text.size());
        end_ += text.size();
    }

 private:
    void MakeRoom(std::size_t count) {
        if (static_cast<std::size_t>(storage_.data() + storage_.size() - end_) < count)
            Grow(count);
    }
    void Grow(std::size_t count) {
        const std::size_t size = Size();
        storage_.resize(2 * storage_.size() + count);
        CutTo(size);
    }

    template <std::size_t width>
    static void CopyEnds(char* to, const char* from, std::size_t count) {
        char first[width], last[width];
        std::memcpy(first, from, width);
        std::memcpy(last, from + count - width, width);
        std::memcpy(to, first, width);
        std::memcpy(to + count - width, last, width);
    }

    // Most pieces are shorter than what a call of memcpy is worth.
    static void CopyShort(char* to, const char* from, std::size_t count) {
        if (count > 32)
            std::memcpy(to, from, count);
        else if (count >= 16)
            CopyEnds<16>(to, from, count);
        else if (count >= 8)
            CopyEnds<8>(to, from, count);
        else if (count >= 4)
            CopyEnds<4>(to, from, count);
        else
            for (std::size_t i = 0; i < count; ++i)
                to[i] = from[i];
    }

    std::vector<char> storage_ = std::vector<char>(4096);
    char* end_ = storage_.data();
};

}  // namespace vellumark
