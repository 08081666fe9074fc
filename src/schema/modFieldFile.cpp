#include "schema/modFieldFile.h"

#include "platform/error.h"
#include "platform/text.h"
#include "repository/modSequentialFileServices.h"

namespace vellumark {

FieldFile::FieldFile(const std::string& path, char separator)
    : path_(path), stream_(path), separator_(separator) {}

std::string_view FieldFile::ReadLine() {
    if (stream_.AtEndOfStream())
        Fail(platform::kInputPastEnd, "Input past end of file");
    const std::string_view line = stream_.ReadLine();
    fields_ = platform::Split(line, separator_);
    return line;
}

void FieldFile::SkipLines(int count) {
    for (; count > 0; --count)
        ReadLine();
}

bool FieldFile::fNextLine() {
    while (!stream_.AtEndOfStream())
        if (!ReadLine().empty())
            return true;
    return false;
}

std::string_view FieldFile::Field(std::size_t number) const {
    if (number >= fields_.size())
        Fail(platform::kSubscriptOutOfRange, "Subscript out of range");
    return fields_[number];
}

int FieldFile::Number(std::size_t number) const {
    const std::string_view text = platform::Trim(Field(number));
    const std::optional<int> value = text.empty() ? 0 : platform::ParseLong(text);
    if (!value)
        Fail(platform::kTypeMismatch, "Type mismatch");
    return *value;
}

void FieldFile::Fail(int number, const std::string& description) const {
    throw platform::Error(number, description + " (" + FileNameOnly(path_) + ", line " +
                                      std::to_string(stream_.LineNumber()) + ")");
}

std::optional<FieldFile> OpenFieldFile(const std::string& path, char separator) {
    try {
        return std::optional<FieldFile>(std::in_place, path, separator);
    } catch (const platform::Error&) {
        return std::nullopt;
    }
}

}  // namespace vellumark
