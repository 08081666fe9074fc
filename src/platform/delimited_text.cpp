#include "platform/delimited_text.h"

#include "platform/error.h"
#include "platform/text.h"

namespace vellumark::platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

DelimitedReader::DelimitedReader(std::istream& in, std::string_view delimiter)
    : in_(in), delimiter_(LeftCharacters(delimiter, 1)) {
    if (delimiter_.empty() || std::string_view("\"\r\n").find(delimiter_) != std::string_view::npos)
        throw Error(kInvalidProcedureCall, "Invalid delimiter: '" + delimiter_ + "'");
}

bool DelimitedReader::ReadRow() {
    if (!ReadLine())
        return false;
    ++rowNumber_;
    lineOfRow_ = lineNumber_;
    at_ = rowNumber_ == 1 && line_.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    std::size_t count = 0;
    for (bool more = true; more; ++count) {
        if (count == fields_.size())
            fields_.emplace_back();
        ReadField(fields_[count]);
        more = AtDelimiter();
        if (more)
            at_ += delimiter_.size();
    }
    fields_.resize(count);
    return true;
}

bool DelimitedReader::ReadLine() {
    if (std::getline(in_, line_)) {
        ++lineNumber_;
        return true;
    }
    if (in_.bad())
        throw Error(kDeviceIOError, "The file can't be read.");
    return false;
}

void DelimitedReader::ReadField(DelimitedField& field) {
    field.text.clear();
    field.quoted = line_.compare(at_, 1, "\"") == 0;
    if (field.quoted)
        return ReadQuoted(field.text);
    const std::size_t next = line_.find(delimiter_, at_);
    const std::size_t end = next == std::string::npos ? LineEnd() : next;
    field.text.assign(line_, at_, end - at_);
    at_ = end;
}

void DelimitedReader::ReadQuoted(std::string& text) {
    ++at_;
    for (;;) {
        const std::size_t quote = line_.find('"', at_);
        text.append(line_, at_, quote == std::string::npos ? quote : quote - at_);
        if (quote == std::string::npos) {
            if (!ReadLine())
                throw Error(kTypeMismatch, "A quote is not closed.");
            text += '\n';
            at_ = 0;
            continue;
        }
        at_ = quote + 1;
        if (line_.compare(at_, 1, "\"") != 0)
            break;
        text += '"';
        ++at_;
    }
    while (at_ < LineEnd() && line_[at_] == ' ' && !AtDelimiter())
        ++at_;
    if (at_ != LineEnd() && !AtDelimiter())
        throw Error(kTypeMismatch, "Text stands behind a closing quote.");
}

bool DelimitedReader::AtDelimiter() const {
    return line_.compare(at_, delimiter_.size(), delimiter_) == 0;
}

std::size_t DelimitedReader::LineEnd() const {
    return line_.size() - (line_.ends_with('\r') ? 1 : 0);
}

}  // namespace vellumark::platform
