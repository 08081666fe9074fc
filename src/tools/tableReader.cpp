#include "tools/tableReader.h"

#include <algorithm>
#include <array>

namespace vellumark {

namespace {

// Types whose texts mean exactly the value again.
constexpr std::array kExactTypes = {2, 3, 16, 17, 18, 19, 20, 21, 72, 129, 130, 131, 200, 202};

}  // namespace

TableReader::TableReader(const dao::RowAccess& access, TableShape shape)
    : access_(access), shape_(std::move(shape)), dialect_(DialectOf(access)), seeks_(SeeksBehindKeys()) {
    select_ = "select " + SelectList(access_, shape_) + " from " + shape_.reference;
    for (const std::size_t field : shape_.order)
        orderBy_ += (orderBy_.empty() ? " order by " : ", ") + FieldExpression(access_, shape_, field);
}

bool TableReader::SeeksBehindKeys() const {
    return dialect_.seeks && !shape_.order.empty() &&
           std::ranges::all_of(shape_.order, [this](std::size_t field) {
               return field < shape_.hidden.size() ||
                      std::ranges::find(kExactTypes, shape_.ColumnOf(field).type.adoType) !=
                          kExactTypes.end();
           });
}

bool TableReader::Read(std::size_t most, const std::function<void(const HeldRow&)>& take) {
    return dialect_.pages ? ReadPage(most, take) : ReadOn(most, take);
}

bool TableReader::ReadOn(std::size_t most, const std::function<void(const HeldRow&)>& take) {
    if (!rows_)
        rows_ = access_.Query(select_ + orderBy_);
    for (; most > 0; --most) {
        if (!rows_->Next()) {
            rows_.reset();
            return false;
        }
        take(ReadHeldRow(*rows_));
    }
    return true;
}

bool TableReader::ReadPage(std::size_t most, const std::function<void(const HeldRow&)>& take) {
    const std::unique_ptr<platform::Cursor> page = access_.Query(PageStatement(most), LastKey());
    std::size_t count = 0;
    for (; page->Next(); ++count) {
        last_ = ReadHeldRow(*page);
        take(last_);
    }
    read_ += count;
    return count == most;
}

std::string TableReader::PageStatement(std::size_t rows) const {
    const std::string limit = " limit " + std::to_string(rows);
    if (seeks_)
        return select_ + (last_.empty() ? "" : " where " + BehindLast()) + orderBy_ + limit;
    return select_ + orderBy_ + limit + " offset " + std::to_string(read_);
}

// "(a, b) > (?, ?)", or "a > ? or (a = ? and b > ?)" where an index serves only that.
std::string TableReader::BehindLast() const {
    std::string names, marks, spelled, equal;
    for (const std::size_t field : shape_.order) {
        const std::string name = FieldExpression(access_, shape_, field);
        names.append(names.empty() ? "" : ", ").append(name);
        marks.append(marks.empty() ? "?" : ", ?");
        spelled.append(spelled.empty() ? "" : " or ").append("(" + equal + name + " > ?)");
        equal.append(name).append(" = ? and ");
    }
    return dialect_.comparesRows ? "(" + names + ") > (" + marks + ")" : "(" + spelled + ")";
}

std::vector<dao::Value> TableReader::LastKey() const {
    std::vector<dao::Value> values;
    if (!seeks_ || last_.empty())
        return values;
    for (std::size_t count = 1; count <= shape_.order.size(); ++count) {
        if (dialect_.comparesRows && count < shape_.order.size())
            continue;
        for (std::size_t i = 0; i < count; ++i)
            values.push_back(ToValue(last_[shape_.order[i]]));
    }
    return values;
}

}  // namespace vellumark
