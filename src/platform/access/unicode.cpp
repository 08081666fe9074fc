#include "platform/access/unicode.h"

namespace vellumark::access {

namespace {

constexpr char32_t kUnreadable = 0xFFFD;

void AppendCharacter(std::string& out, char32_t c) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

// Puts characters above 0xFFFF together from their two halves.
class Writer {
 public:
    explicit Writer(std::string& out) : out_(out) {}

    void Add(char32_t unit) {
        if (first_ != 0 && IsSecond(unit)) {
            AppendCharacter(out_, 0x10000 + ((first_ - 0xD800) << 10) + (unit - 0xDC00));
            first_ = 0;
            return;
        }
        Finish();
        if (IsFirst(unit))
            first_ = unit;
        else
            AppendCharacter(out_, IsSecond(unit) ? kUnreadable : unit);
    }

    // A half without its other half can't be written.
    void Finish() {
        if (first_ != 0)
            AppendCharacter(out_, kUnreadable);
        first_ = 0;
    }

 private:
    static bool IsFirst(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
    static bool IsSecond(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

    std::string& out_;
    char32_t first_ = 0;
};

void AddPacked(Writer& writer, Bytes text) {
    bool single = true;
    for (std::size_t at = 0; at < text.Size();) {
        if (text.Byte(at) == 0) {
            single = !single;
            ++at;
        } else if (single) {
            writer.Add(text.Byte(at++));
        } else if (at + 1 < text.Size()) {
            writer.Add(text.Short(at));
            at += 2;
        } else {
            return;
        }
    }
}

}  // namespace

void AppendUtf16(std::string& out, Bytes text) {
    constexpr unsigned kPackedMark = 0xFEFF;
    Writer writer(out);
    if (text.Size() >= 2 && text.Short(0) == kPackedMark)
        AddPacked(writer, text.From(2));
    else
        for (std::size_t at = 0; at + 1 < text.Size(); at += 2)
            writer.Add(text.Short(at));
    writer.Finish();
}

}  // namespace vellumark::access
