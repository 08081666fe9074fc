#include "platform/access/properties.h"

namespace vellumark::access {

namespace {

constexpr std::size_t kMarkSize = 4;
constexpr std::size_t kChunkHead = 6;  // its size and kind
constexpr unsigned kNames = 0x80;
constexpr unsigned kBoolean = 1;

std::vector<std::string> ReadNames(File& file, Bytes chunk) {
    std::vector<std::string> names;
    for (std::size_t at = 0; at < chunk.Size();) {
        const std::size_t size = chunk.Short(at);
        names.push_back(file.Text(chunk.Part(at + 2, size)));
        at += 2 + size;
    }
    return names;
}

// The properties of one column, or of the table itself, which has no name here.
ColumnProperties ReadColumn(File& file, Bytes chunk, const std::vector<std::string>& names) {
    constexpr std::size_t kSizeAt = 0, kKindAt = 3, kNameAt = 4, kValueAt = 8, kHead = 4;
    ColumnProperties properties;
    const std::size_t head = chunk.Long(0);
    if (head > kHead + 2)
        properties.column = file.Text(chunk.Part(kHead + 2, chunk.Short(kHead)));
    for (std::size_t at = head; at < chunk.Size();) {
        const std::size_t size = chunk.Short(at + kSizeAt);
        const Bytes entry = chunk.Part(at, size);
        const std::size_t name = entry.Short(kNameAt);
        if (name >= names.size())
            ThrowDamaged("a property has no name");
        const bool isSet = entry.Byte(kKindAt) == kBoolean && entry.Byte(kValueAt) != 0;
        if (names[name] == "Required")
            properties.required = isSet;
        else if (names[name] == "AllowZeroLength")
            properties.allowZeroLength = isSet;
        at += size;
    }
    return properties;
}

}  // namespace

std::vector<ColumnProperties> ReadProperties(File& file, Bytes block) {
    std::vector<ColumnProperties> properties;
    std::vector<std::string> names;
    if (block.Size() == 0)
        return properties;
    for (std::size_t at = kMarkSize; at + kChunkHead <= block.Size();) {
        const std::size_t size = block.Long(at);
        if (size < kChunkHead)
            ThrowDamaged("the properties of a table are cut off");
        const Bytes chunk = block.Part(at, size).From(kChunkHead);
        if (block.Short(at + 4) == kNames)
            names = ReadNames(file, chunk);
        else
            properties.push_back(ReadColumn(file, chunk, names));
        at += size;
    }
    return properties;
}

}  // namespace vellumark::access
