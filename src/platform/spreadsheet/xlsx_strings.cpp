#include "platform/spreadsheet/xlsx_strings.h"

#include <charconv>

namespace vellumark::platform {

namespace {

constexpr std::size_t kEscapeLength = 7;  // _xHHHH_

// The character of the escape at the start of `text`, or -1.
int EscapedCharacter(std::string_view text) {
    if (text.size() < kEscapeLength || !text.starts_with("_x") || text[kEscapeLength - 1] != '_')
        return -1;
    int code = 0;
    const char* end = text.data() + kEscapeLength - 1;
    const auto result = std::from_chars(text.data() + 2, end, code, 16);
    return result.ptr == end ? code : -1;
}

class SharedStringReader : public XmlHandler {
 public:
    void StartElement(std::string_view name, const XmlAttributes&) override {
        const std::string_view local = LocalName(name);
        if (local == "rPh")
            inPhonetic_ = true;
        inText_ = local == "t" && !inPhonetic_;
    }
    void EndElement(std::string_view name) override {
        const std::string_view local = LocalName(name);
        inText_ = false;
        if (local == "rPh")
            inPhonetic_ = false;
        if (local != "si")
            return;
        unescaped_.clear();
        AppendUnescaped(unescaped_, text_);
        strings.Append(unescaped_);
        text_.clear();
    }
    void Text(std::string_view text) override {
        if (inText_)
            text_ += text;
    }

    TextList strings;

 private:
    bool inText_ = false;
    bool inPhonetic_ = false;
    std::string text_;
    std::string unescaped_;
};

}  // namespace

void AppendUnescaped(std::string& out, std::string_view text) {
    for (;;) {
        const std::size_t at = text.find("_x");
        if (at == std::string_view::npos)
            break;
        out += text.substr(0, at);
        text.remove_prefix(at);
        const int code = EscapedCharacter(text);
        const bool isAscii = code >= 0 && code < 0x80;
        out += isAscii ? static_cast<char>(code) : text[0];
        text.remove_prefix(isAscii ? kEscapeLength : 1);
    }
    out += text;
}

TextList ReadSharedStrings(const ZipArchive& archive, const std::string& entry) {
    SharedStringReader reader;
    ReadXml(archive, entry, reader);
    return std::move(reader.strings);
}

}  // namespace vellumark::platform
