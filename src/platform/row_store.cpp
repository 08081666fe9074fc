#include "platform/row_store.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <unistd.h>

#include "platform/error.h"

namespace vellumark::platform {

namespace {

constexpr std::size_t kBlockSize = 1 << 20;
// In place of a field's length.
constexpr std::uint32_t kNull = 0xFFFFFFFF;

[[noreturn]] void ThrowFileError(int code) {
    const bool full = code == ENOSPC || code == EDQUOT || code == EFBIG;
    throw Error(full ? kDiskFull : kDeviceIOError,
                std::string(std::strerror(code)) + ": a temporary file for the rows");
}

int MakeFile() {
    std::string path = (std::filesystem::temp_directory_path() / "vellumark-XXXXXX").string();
    const int handle = mkstemp(path.data());
    if (handle < 0)
        ThrowFileError(errno);
    unlink(path.c_str());  // it lives on until it is closed
    return handle;
}

void WriteAll(int handle, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(handle, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            ThrowFileError(errno);
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

std::optional<std::string> TakeField(std::string_view& bytes) {
    std::uint32_t length = 0;
    std::memcpy(&length, bytes.data(), sizeof length);
    bytes.remove_prefix(sizeof length);
    if (length == kNull)
        return std::nullopt;
    std::string field(bytes.substr(0, length));
    bytes.remove_prefix(length);
    return field;
}

}  // namespace

RowStore::RowStore(std::vector<std::string> fieldNames) : fieldNames_(std::move(fieldNames)) {}

RowStore::~RowStore() {
    if (handle_ >= 0)
        close(handle_);
}

void RowStore::Append(const Cursor& row) {
    const std::lock_guard lock(mutex_);
    for (std::size_t column = 0; column < fieldNames_.size(); ++column)
        AppendField(row.IsNull(column) ? std::nullopt : std::optional(row.Text(column)));
    EndRow();
}

void RowStore::Append(const Fields& row) {
    const std::lock_guard lock(mutex_);
    for (const std::optional<std::string>& field : row)
        AppendField(field);
    EndRow();
}

void RowStore::AppendField(std::optional<std::string_view> field) {
    const std::uint32_t length = field ? static_cast<std::uint32_t>(field->size()) : kNull;
    char bytes[sizeof length];
    std::memcpy(bytes, &length, sizeof length);
    block_.append(bytes, sizeof bytes).append(field.value_or(std::string_view()));
}

void RowStore::EndRow() {
    ends_.push_back(written_ + block_.size());
    if (block_.size() >= kBlockSize)
        WriteBlock();
}

void RowStore::WriteBlock() {
    if (handle_ < 0)
        handle_ = MakeFile();
    WriteAll(handle_, block_);
    written_ += block_.size();
    block_.clear();
}

std::size_t RowStore::RowCount() const {
    const std::lock_guard lock(mutex_);
    return ends_.size();
}

RowStore::Fields RowStore::Row(std::size_t place) const {
    const std::lock_guard lock(mutex_);
    if (place >= ends_.size())
        return {};
    const std::uint64_t from = place == 0 ? 0 : ends_[place - 1];
    const std::string bytes = Bytes(from, static_cast<std::size_t>(ends_[place] - from));
    std::string_view rest = bytes;
    Fields fields;
    while (!rest.empty())
        fields.push_back(TakeField(rest));
    return fields;
}

// A row never lies partly in the file and partly in the block.
std::string RowStore::Bytes(std::uint64_t from, std::size_t count) const {
    if (from >= written_)
        return block_.substr(static_cast<std::size_t>(from - written_), count);
    std::string bytes(count, '\0');
    for (std::size_t done = 0; done < count;) {
        const ssize_t read =
            pread(handle_, bytes.data() + done, count - done, static_cast<off_t>(from + done));
        if (read < 0 && errno == EINTR)
            continue;
        if (read <= 0)
            ThrowFileError(read < 0 ? errno : EIO);
        done += static_cast<std::size_t>(read);
    }
    return bytes;
}

}  // namespace vellumark::platform
