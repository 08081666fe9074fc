#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vellumark::ado {

// The parts of "key=value;key={value}". Keys compare without regard to case; blanks around keys and values
// don't count; between braces a semicolon is an ordinary character and "}}" means one brace. Of equal keys
// the first holds, and a part without "=" is passed over.
class ConnectionString {
 public:
    explicit ConnectionString(std::string_view text);

    // Empty text when the key is missing.
    const std::string& Value(std::string_view key) const;

 private:
    std::vector<std::pair<std::string, std::string>> parts_;
};

}  // namespace vellumark::ado
