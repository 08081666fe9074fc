#pragma once

#include <map>
#include <string>
#include <string_view>

#include "engine/valueSource.h"

namespace vellumark {

// The values that the codes of one Conversion Code stand for. Case does not count.
class ConversionCodes {
 public:
    // Reads them from the Values database; an Id below 1 has none.
    explicit ConversionCodes(int conversionId);

    bool IsEmpty() const { return values_.empty(); }
    // A code that is not there stands for itself.
    std::string_view Value(std::string_view code) const;

 private:
    struct Less {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const;
    };

    std::map<std::string, std::string, Less> values_;
};

// Makes what was read from a source into a value of its column.
class InputConversion {
 public:
    InputConversion(const ReaderColumn& column, const ValueSource& source);

    // Appends the value without its quotes, as the literal of a date or time, and converted from its code.
    void ConvertInputValue(std::string& out, std::string_view text);

 private:
    void AppendDatetimeLiteral(std::string& out, std::string_view text);

    bool inQuotes_ = false;
    char datetimeKind_ = ' ';  // 'D', 'T' or 'S'
    EditPattern inputPattern_;
    int year2000Conversion_;
    TargetFormat format_;
    EditPattern outputPattern_;
    ConversionCodes codes_;
    std::string canonical_;
    std::string literal_;
};

}  // namespace vellumark
