#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/line_file.h"

namespace vellumark::platform {

// A text file read line by line from its top; lines end with CR LF or LF.
class TextStream {
 public:
    // Throws as LineFile does.
    explicit TextStream(const std::string& path);

    bool AtEndOfStream() const { return line_ >= file_->LineCount(); }
    // Throws kInputPastEnd at the end. Valid until the next call.
    std::string_view ReadLine();
    void SkipLine() { ReadLine(); }
    // Of the line read last, counted from 1.
    int LineNumber() const { return line_; }

 private:
    std::unique_ptr<LineFile> file_;
    int line_ = 0;
};

}  // namespace vellumark::platform
