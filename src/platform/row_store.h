#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cursor.h"

namespace vellumark::platform {

// Any number of a query's rows in a temporary file, to be shown by their place. Memory holds eight bytes for
// a row; the file goes with the object, even when the program is killed. One thread may append while another
// reads.
class RowStore {
 public:
    using Fields = std::vector<std::optional<std::string>>;  // nothing is Null

    // No file is made before there are many rows. Throws, as Append and Row do, kDeviceIOError or kDiskFull.
    explicit RowStore(std::vector<std::string> fieldNames = {});
    ~RowStore();
    RowStore(const RowStore&) = delete;
    RowStore& operator=(const RowStore&) = delete;

    const std::vector<std::string>& FieldNames() const { return fieldNames_; }

    // The row at which the cursor stands; it has as many fields as there are names.
    void Append(const Cursor& row);
    void Append(const Fields& row);

    std::size_t RowCount() const;
    // Counts from 0; a row that isn't there has no fields.
    Fields Row(std::size_t place) const;

 private:
    void AppendField(std::optional<std::string_view> field);
    void EndRow();
    void WriteBlock();
    std::string Bytes(std::uint64_t from, std::size_t count) const;

    std::vector<std::string> fieldNames_;
    mutable std::mutex mutex_;
    std::vector<std::uint64_t> ends_;  // of each row, in the file and the block behind it
    std::string block_;                // not written yet
    std::uint64_t written_ = 0;
    int handle_ = -1;
};

}  // namespace vellumark::platform
