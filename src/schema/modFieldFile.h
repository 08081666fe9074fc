#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_stream.h"

namespace vellumark {

// A text file that another tool writes: lines whose fields, counted from 0, part at one character. Errors
// name the line they are about.
class FieldFile {
 public:
    // Throws platform::Error when the file can't be opened.
    FieldFile(const std::string& path, char separator);

    // The next line as a whole; its fields become the current ones. Throws kInputPastEnd behind the last.
    std::string_view ReadLine();
    void SkipLines(int count);
    // Goes to the next line that isn't empty; false when there is none.
    bool fNextLine();

    // Of the current line. Throws kSubscriptOutOfRange when it has no such field.
    std::string_view Field(std::size_t number) const;
    // Nothing counts as 0. Throws kTypeMismatch for what is no whole number.
    int Number(std::size_t number) const;
    std::size_t FieldCount() const { return fields_.size(); }

    // Throws an error with the line behind its description.
    [[noreturn]] void Fail(int number, const std::string& description) const;

 private:
    std::string path_;
    platform::TextStream stream_;
    char separator_;
    std::vector<std::string_view> fields_;
};

// Nothing when the file can't be opened.
std::optional<FieldFile> OpenFieldFile(const std::string& path, char separator);

}  // namespace vellumark
