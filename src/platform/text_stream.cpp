#include "platform/text_stream.h"

#include "platform/error.h"

namespace vellumark::platform {

TextStream::TextStream(const std::string& path) : file_(std::make_unique<LineFile>(path)) {}

std::string_view TextStream::ReadLine() {
    if (AtEndOfStream())
        throw Error(kInputPastEnd, "Input past end of file");
    return file_->Line(++line_);
}

}  // namespace vellumark::platform
