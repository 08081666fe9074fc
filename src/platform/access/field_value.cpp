#include "platform/access/field_value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "platform/calendar.h"

namespace vellumark::access {

namespace {

__extension__ using Wide = unsigned __int128;

void GiveText(sqlite3_context* result, const std::string& text) {
    sqlite3_result_text64(result, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void GiveBlob(sqlite3_context* result, std::string_view bytes) {
    sqlite3_result_blob64(result, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
}

void GiveDate(sqlite3_context* result, double serial, std::string& buffer) {
    constexpr double kFirst = -657434, kLast = 2958466;  // 0100-01-01, 10000-01-01
    constexpr int kSecondsOfDay = 24 * 60 * 60;
    if (!(serial > kFirst - 1 && serial < kLast))
        return sqlite3_result_double(result, serial);
    // The time counts onwards from midnight on days before 1899-12-30 too.
    double day = std::trunc(serial);
    int seconds = static_cast<int>(std::lround(std::abs(serial - day) * kSecondsOfDay));
    if (seconds == kSecondsOfDay) {
        seconds = 0;
        ++day;
    }
    if (day >= kLast)
        return sqlite3_result_double(result, serial);
    const platform::Time time{seconds / 3600, seconds / 60 % 60, seconds % 60};
    platform::AppendMoment(buffer, {platform::DateOfDayNumber(static_cast<int>(day)), time});
    GiveText(result, buffer);
}

// The number that people see: 0.1 is not 0.100000001490116.
void GiveSingle(sqlite3_context* result, float number) {
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    double same = number;
    std::from_chars(text.data(), end, same);
    sqlite3_result_double(result, same);
}

// The value is digits / 10^scale.
void GiveDecimal(sqlite3_context* result, bool negative, Wide digits, int scale, std::string& buffer) {
    constexpr std::size_t kExactDigits = 15;
    for (; scale > 0 && digits % 10 == 0; --scale)
        digits /= 10;
    for (; digits != 0; digits /= 10)
        buffer += static_cast<char>('0' + static_cast<int>(digits % 10));
    const std::size_t significant = buffer.size();
    const auto decimals = static_cast<std::size_t>(scale);
    buffer.resize(std::max(buffer.size(), decimals + 1), '0');
    if (decimals > 0)
        buffer.insert(decimals, ".");
    if (negative && significant > 0)
        buffer += '-';
    std::ranges::reverse(buffer);
    const char* end = buffer.data() + buffer.size();
    std::int64_t integer = 0;
    double real = 0;
    if (decimals == 0 && std::from_chars(buffer.data(), end, integer).ec == std::errc())
        return sqlite3_result_int64(result, integer);
    if (significant > kExactDigits || decimals > kExactDigits / 2)
        return GiveText(result, buffer);
    std::from_chars(buffer.data(), end, real);
    sqlite3_result_double(result, real);
}

void GiveCurrency(sqlite3_context* result, std::int64_t value, std::string& buffer) {
    constexpr int kScale = 4;
    const auto size = static_cast<std::uint64_t>(value);
    GiveDecimal(result, value < 0, value < 0 ? 0 - size : size, kScale, buffer);
}

// A byte for the sign, then four groups of four bytes with the highest group first.
void GiveNumeric(sqlite3_context* result, Bytes field, int scale, std::string& buffer) {
    constexpr unsigned kNegative = 0x80;
    Wide digits = 0;
    for (std::size_t at = 1; at < 17; at += 4)
        digits = digits << 32 | field.Long(at);
    GiveDecimal(result, (field.Byte(0) & kNegative) != 0, digits, scale, buffer);
}

// "{00112233-4455-6677-8899-AABBCCDDEEFF}"; the first three groups are numbers.
void GiveGuid(sqlite3_context* result, Bytes field, std::string& buffer) {
    constexpr std::array<std::size_t, 16> kOrder = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    buffer = "{";
    for (std::size_t i = 0; i < kOrder.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            buffer += '-';
        const unsigned byte = field.Byte(kOrder[i]);
        buffer += kDigits[byte >> 4];
        buffer += kDigits[byte & 0xF];
    }
    buffer += "}";
    GiveText(result, buffer);
}

// False when the column holds something else.
bool GiveNumber(sqlite3_context* result, Bytes field, const Column& column, std::string& buffer) {
    switch (column.kind) {
        case Kind::Byte:
            sqlite3_result_int(result, field.Byte(0));
            return true;
        case Kind::Integer:
            sqlite3_result_int(result, field.Get<std::int16_t>(0));
            return true;
        case Kind::Long:
            sqlite3_result_int(result, field.Get<std::int32_t>(0));
            return true;
        case Kind::BigInt:
            sqlite3_result_int64(result, field.Get<std::int64_t>(0));
            return true;
        case Kind::Currency:
            GiveCurrency(result, field.Get<std::int64_t>(0), buffer);
            return true;
        case Kind::Numeric:
            GiveNumeric(result, field, column.scale, buffer);
            return true;
        case Kind::Single:
            GiveSingle(result, field.Get<float>(0));
            return true;
        case Kind::Double:
            sqlite3_result_double(result, field.Get<double>(0));
            return true;
        default:
            return false;
    }
}

void GiveMemo(sqlite3_context* result, File& file, Bytes field, std::string& buffer) {
    std::string stored;
    file.AppendLongValue(stored, field);
    file.AppendText(buffer, Bytes(stored));
    GiveText(result, buffer);
}

}  // namespace

void GiveField(sqlite3_context* result, File& file, const Rows& rows, const Column& column,
               std::string& buffer) {
    if (column.kind == Kind::Boolean)
        return sqlite3_result_int(result, rows.IsTrue(column) ? -1 : 0);
    const std::optional<Bytes> field = rows.Field(column);
    if (!field || column.kind == Kind::Complex)
        return sqlite3_result_null(result);
    buffer.clear();
    if (GiveNumber(result, *field, column, buffer))
        return;
    switch (column.kind) {
        case Kind::Date:
            return GiveDate(result, field->Get<double>(0), buffer);
        case Kind::Guid:
            return GiveGuid(result, *field, buffer);
        case Kind::Text:
            file.AppendText(buffer, *field);
            return GiveText(result, buffer);
        case Kind::Memo:
            return GiveMemo(result, file, *field, buffer);
        case Kind::LongBinary:
            file.AppendLongValue(buffer, *field);
            return GiveBlob(result, buffer);
        default:
            return GiveBlob(result, field->Text());
    }
}

}  // namespace vellumark::access
