#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vellumark::access {

// Throws kUnrecognizedFormat; `what` is the part of the file that is wrong.
[[noreturn]] void ThrowDamaged(std::string_view what);

// A stretch of a file whose content nobody vouches for: looking outside of it throws as ThrowDamaged does.
// Numbers are little-endian.
class Bytes {
 public:
    Bytes() = default;
    Bytes(const unsigned char* data, std::size_t size) : data_(data), size_(size) {}
    explicit Bytes(std::string_view text)
        : data_(reinterpret_cast<const unsigned char*>(text.data())), size_(text.size()) {}

    std::size_t Size() const { return size_; }
    std::string_view Text() const { return {reinterpret_cast<const char*>(data_), size_}; }

    template <typename Number>
    Number Get(std::size_t at) const {
        static_assert(std::endian::native == std::endian::little);
        Check(at, sizeof(Number));
        Number number;
        std::memcpy(&number, data_ + at, sizeof(Number));
        return number;
    }
    std::uint8_t Byte(std::size_t at) const { return Get<std::uint8_t>(at); }
    std::uint16_t Short(std::size_t at) const { return Get<std::uint16_t>(at); }
    std::uint32_t Long(std::size_t at) const { return Get<std::uint32_t>(at); }

    Bytes Part(std::size_t at, std::size_t size) const {
        Check(at, size);
        return {data_ + at, size};
    }
    Bytes From(std::size_t at) const {
        Check(at, 0);
        return {data_ + at, size_ - at};
    }

 private:
    void Check(std::size_t at, std::size_t size) const {
        if (at > size_ || size > size_ - at)
            ThrowDamaged("something points outside of its page");
    }

    const unsigned char* data_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace vellumark::access
