#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::fuzz {

// The program broke a promise. Nothing in the program catches it.
class Broken : public std::logic_error {
    using std::logic_error::logic_error;
};

void Expect(bool kept, const std::string& promise);
// The message shows both.
void ExpectSame(std::string_view a, std::string_view b, const std::string& promise);

// The bytes of one run, taken apart from the front. Behind the end everything is empty or 0.
class Input {
 public:
    explicit Input(std::string_view bytes) : rest_(bytes) {}

    bool AtEnd() const { return rest_.empty(); }
    unsigned char Byte();
    // 0 to `count` - 1; files kept by hand use digits and letters, "0" being 0 and "A" 17.
    std::size_t Choice(std::size_t count);
    bool Flag() { return Choice(2) == 1; }
    // Without its line feed.
    std::string_view Line();
    // A line; 0 when it is no number.
    int Number();
    std::string_view Bytes(std::size_t count);
    std::string_view Rest() const { return rest_; }

 private:
    std::string_view rest_;
};

// The parts between lines that hold nothing but `separator`.
std::vector<std::string_view> Parts(std::string_view text, std::string_view separator);

}  // namespace vellumark::fuzz
