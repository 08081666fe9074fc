#pragma once

#include <string>
#include <string_view>

namespace vellumark::platform {

// A text file written in large blocks. Text is appended to Buffer(), and once in a while WriteWhenFull hands
// it to the file; what stands in the buffer can still be cut back. Failures throw kPathNotFound,
// kPathAccessError, kPermissionDenied, kBadFileName, kDiskFull or kDeviceIOError.
class OutputFile {
 public:
    // Makes the file, or empties the one that is there.
    explicit OutputFile(const std::string& path);
    // Closes without writing what is left in the buffer.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    std::string& Buffer() { return buffer_; }
    // The text with the line end of written files behind it: CR LF.
    void AddLine(std::string_view text) {
        buffer_.append(text).append("\r\n");
        WriteWhenFull();
    }
    void WriteWhenFull() {
        if (buffer_.size() >= kBlockSize)
            Flush();
    }
    // The buffer is empty behind it, whether it could be written or not.
    void Flush();
    void Close();

 private:
    static constexpr std::size_t kBlockSize = 256 * 1024;

    void Write(const char* bytes, std::size_t count) const;

    std::string path_;
    std::string buffer_;
    int handle_;
};

}  // namespace vellumark::platform
