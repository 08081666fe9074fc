#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::dao {

// The part of "insert into T (A, B) values (1, 'x')" that it shares with the next row's statement.
struct InsertHead {
    std::string_view text;  // from the start to behind the values' parenthesis
    std::string_view table;
    std::vector<std::string_view> columns;  // empty when the statement lists none
};

// Nothing for any other statement.
std::optional<InsertHead> ParseInsertHead(std::string_view statement);

struct Literal {
    enum class Kind { Null, Integer, Real, Text };

    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view text;         // without the quotes around it
    bool hasDoubledQuote = false;  // a quote inside is still written twice
};

// Reads the values behind an insert's head: numbers, texts in single quotes, null, True and False, each with
// parentheses around it or not. Texts stay where they are.
class LiteralReader {
 public:
    explicit LiteralReader(std::string_view rest) : rest_(rest) {}

    // False when something else stands there.
    bool Read(Literal& literal);
    // Takes the comma to the next value; false when none follows.
    bool TakeComma() { return Take(','); }
    // True when the statement ends here as it should.
    bool TakeEnd();

 private:
    void SkipBlanks();
    bool Take(char wanted);
    bool ReadBare(Literal& literal);
    bool ReadText(Literal& literal);
    bool ReadNumber(Literal& literal);
    bool ReadWord(Literal& literal);

    std::string_view rest_;
};

}  // namespace vellumark::dao
