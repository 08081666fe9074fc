#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellumark::platform {

// The parts of "key=value;key={value}". Keys compare without regard to case; blanks around keys and values
// don't count; between braces a semicolon is an ordinary character and "}}" means one brace. Of equal keys
// the first holds, and a part without "=" is passed over.
class ConnectionString {
 public:
    struct Part {
        std::string key;
        std::string value;
        std::string written;  // the value with the braces it came in
    };

    explicit ConnectionString(std::string_view text);

    // Empty text when the key is missing.
    const std::string& Value(std::string_view key) const;
    const std::vector<Part>& Parts() const { return parts_; }

 private:
    std::vector<Part> parts_;
};

// The value as a connection string carries it: in braces when it needs them.
std::string WrittenValue(std::string_view value);

// A text that may hold a connection string, as people may see it: "***" in place of each password.
std::string MaskPasswords(std::string_view text);

// The same for a text about a connection that was tried: what its own string holds of passwords is masked
// wherever it stands, but for those of fewer than four characters, which could be part of any word.
std::string MaskPasswords(std::string_view text, std::string_view connectionString);

}  // namespace vellumark::platform
