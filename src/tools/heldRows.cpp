#include "tools/heldRows.h"

namespace vellumark {

namespace {

// In front of each field: what it is, and whether all of it is there.
constexpr char kText = 't', kCutText = 'T', kBytes = 'b', kCutBytes = 'B';

std::optional<std::string> Encoded(const HeldField& field) {
    if (field.kind == HeldField::Kind::Null)
        return std::nullopt;
    const bool isText = field.kind == HeldField::Kind::Text;
    const char mark = isText ? (field.cut ? kCutText : kText) : (field.cut ? kCutBytes : kBytes);
    return mark + field.text;
}

HeldField Decoded(const std::optional<std::string>& stored) {
    if (!stored)
        return {};
    const char mark = stored->front();
    return {mark == kText || mark == kCutText ? HeldField::Kind::Text : HeldField::Kind::Bytes,
            mark == kCutText || mark == kCutBytes, stored->substr(1)};
}

}  // namespace

HeldRow HeldRows::Row(std::size_t place) const {
    HeldRow row;
    for (const std::optional<std::string>& field : store_->Row(order_[place]))
        row.push_back(Decoded(field));
    return row;
}

void HeldRows::Append(const HeldRow& row) {
    order_.push_back(Keep(row));
}

void HeldRows::Replace(std::size_t place, const HeldRow& row) {
    order_[place] = Keep(row);
}

std::uint32_t HeldRows::Keep(const HeldRow& row) {
    platform::RowStore::Fields fields;
    fields.reserve(row.size());
    for (const HeldField& field : row)
        fields.push_back(Encoded(field));
    store_->Append(fields);
    return static_cast<std::uint32_t>(store_->RowCount() - 1);
}

}  // namespace vellumark
