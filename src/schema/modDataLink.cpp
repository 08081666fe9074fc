#include "schema/modDataLink.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/connection_string.h"
#include "platform/dialogs.h"
#include "platform/text.h"

namespace vellumark {

namespace {

constexpr std::array<std::string_view, 1> kDriverNames = {"Driver"};
constexpr std::array<std::string_view, 2> kPasswordNames = {"PWD", "Password"};
constexpr std::array<std::string_view, 4> kUsualNames = {"Server", "Port", "Database", "UID"};

bool IsOneOf(std::string_view name, std::span<const std::string_view> names) {
    return std::ranges::any_of(names,
                               [&](std::string_view one) { return platform::EqualsIgnoringCase(one, name); });
}

bool IsOther(const LinkPart& part) {
    return !IsOneOf(part.name, kDriverNames) && !IsOneOf(part.name, kPasswordNames);
}

}  // namespace

DataLink::DataLink(std::string_view connectionString) : original_(connectionString) {
    const platform::ConnectionString taken(original_);
    for (const platform::ConnectionString::Part& part : taken.Parts())
        parts_.push_back({{++lastId_, part.key, part.value}, part.written});
    if (platform::Trim(original_).empty())
        for (const std::string_view name : kUsualNames)
            AddPart(name, "");
    changed_ = false;
}

std::string DataLink::ConnectionString() const {
    if (!changed_)
        return original_;
    std::string text;
    for (const Part& part : parts_)
        if (!part.value.empty())
            text.append(text.empty() ? "" : ";").append(part.name).append("=").append(part.written);
    return text;
}

std::string DataLink::Driver() const {
    const Part* part = Find(kDriverNames);
    return part == nullptr ? "" : part->value;
}

void DataLink::SetDriver(std::string_view name) {
    Set(kDriverNames, name, "{" + platform::Replace(name, "}", "}}") + "}");
}

std::string DataLink::Password() const {
    const Part* part = Find(kPasswordNames);
    return part == nullptr ? "" : part->value;
}

void DataLink::SetPassword(std::string_view password) {
    Set(kPasswordNames, password, platform::WrittenValue(password));
}

std::vector<LinkPart> DataLink::OtherParts() const {
    std::vector<LinkPart> others;
    std::ranges::copy_if(parts_, std::back_inserter(others), IsOther);
    return others;
}

int DataLink::AddPart(std::string_view name, std::string_view value) {
    parts_.push_back({{++lastId_, std::string(name), std::string(value)}, platform::WrittenValue(value)});
    changed_ = true;
    return lastId_;
}

void DataLink::ChangePart(const LinkPart& part) {
    const auto found = std::ranges::find(parts_, part.id, &Part::id);
    if (found == parts_.end() || (found->name == part.name && found->value == part.value))
        return;
    if (found->value != part.value)
        found->written = platform::WrittenValue(part.value);
    found->name = part.name;
    found->value = part.value;
    changed_ = true;
}

void DataLink::RemovePart(int id) {
    changed_ = std::erase_if(parts_, [&](const Part& part) { return part.id == id; }) > 0 || changed_;
}

// The first that has a value, for one without is not written and would let the next one count.
const DataLink::Part* DataLink::Find(Names names) const {
    const Part* first = nullptr;
    for (const Part& part : parts_)
        if (IsOneOf(part.name, names) && (first == nullptr || (first->value.empty() && !part.value.empty())))
            first = &part;
    return first;
}

void DataLink::Set(Names names, std::string_view value, std::string_view written) {
    const Part* part = Find(names);
    if (value == (part == nullptr ? "" : part->value))
        return;
    const int id = part == nullptr ? AddPart(names.front(), "") : part->id;
    const auto place = std::ranges::find(parts_, id, &Part::id);
    place->value = value;
    place->written = written;
    // Another of the name, which didn't count, must not come up when this one is emptied.
    std::erase_if(parts_, [&](const Part& other) { return other.id != id && IsOneOf(other.name, names); });
    changed_ = true;
}

bool fLinkPartNameOK(std::string_view name) {
    std::string refusal;
    if (platform::Trim(name).empty())
        refusal = "Please enter the name of the part";
    else if (name.find_first_of("=;{}") != name.npos)
        refusal = "The name of a part may not hold any of = ; { }";
    else if (!IsOther({0, std::string(platform::Trim(name)), ""}))
        refusal = "Driver and password have fields of their own.";
    if (!refusal.empty())
        platform::ShowExclamation(refusal);
    return refusal.empty();
}

}  // namespace vellumark
