#include "tools/sqlListing.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "platform/row_store.h"
#include "platform/text.h"

namespace vellumark {

namespace {

// A cell with more stands out of its column.
constexpr std::size_t kWidestColumn = 80;
constexpr std::string_view kGap = "  ";

void AppendCsvField(std::string& line, std::string_view text) {
    const bool plain = !text.empty() && text.find_first_of(",\"\r\n") == text.npos;
    if (plain)
        line.append(text);
    else
        line.append("\"").append(platform::Replace(text, "\"", "\"\"")).append("\"");
}

class Csv : public SQLListing {
 public:
    explicit Csv(std::ostream& out) : out_(out) {}

    void TakeFields(const std::vector<std::string>& names) override {
        fields_ = names.size();
        WriteLine([&](std::size_t field) { return std::optional<std::string_view>(names[field]); });
    }

    bool TakeRow(const platform::Cursor& row) override {
        return WriteLine([&](std::size_t field) {
            return row.IsNull(field) ? std::nullopt : std::optional(row.Text(field));
        });
    }

 private:
    template <typename FieldAt>
    bool WriteLine(FieldAt fieldAt) {
        line_.clear();
        for (std::size_t field = 0; field < fields_; ++field) {
            if (field > 0)
                line_ += ',';
            if (const std::optional<std::string_view> text = fieldAt(field))
                AppendCsvField(line_, *text);
        }
        out_ << line_.append("\r\n");
        return out_.good();
    }

    std::ostream& out_;
    std::size_t fields_ = 0;
    std::string line_;
};

bool LooksNumeric(std::string_view text) {
    return text.find_first_not_of("0123456789.-+E") == text.npos &&
           text.find_first_of("0123456789") != text.npos;
}

// Line breaks and the like would tear the table.
std::string CellText(std::string_view text) {
    std::string cell(text);
    std::ranges::replace_if(
        cell, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return cell;
}

class Table : public SQLListing {
 public:
    explicit Table(std::ostream& out) : out_(out) {}

    void TakeFields(const std::vector<std::string>& names) override {
        rows_.emplace(names);
        for (const std::string& name : names)
            columns_.push_back({platform::CharacterCount(name)});
    }

    bool TakeRow(const platform::Cursor& row) override {
        for (std::size_t i = 0; i < columns_.size(); ++i)
            Measure(columns_[i], row.Text(i));
        rows_->Append(row);
        return out_.good();
    }

    void Finish() override {
        if (!rows_)
            return;
        const std::size_t count = rows_->RowCount();
        WriteNames();
        for (std::size_t place = 0; place < count && out_.good(); ++place)
            WriteRow(rows_->Row(place));
        out_ << "(" << count << (count == 1 ? " row)\n" : " rows)\n");
    }

 private:
    struct Column {
        std::size_t width = 0;
        bool numeric = true;
        bool filled = false;
    };

    static void Measure(Column& column, std::string_view text) {
        if (text.empty())
            return;
        column.filled = true;
        column.numeric = column.numeric && LooksNumeric(text);
        column.width = std::max(column.width, std::min(platform::CharacterCount(text), kWidestColumn));
    }

    void WriteNames() {
        std::string line;
        platform::RowStore::Fields names;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            names.emplace_back(rows_->FieldNames()[i]);
            line.append(i == 0 ? "" : kGap).append(columns_[i].width, '-');
        }
        WriteRow(names);
        out_ << line << "\n";
    }

    void WriteRow(const platform::RowStore::Fields& row) {
        std::string line;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const Column& column = columns_[i];
            const std::string cell = CellText(row[i].value_or(""));
            const std::size_t length = platform::CharacterCount(cell);
            const std::string blanks(column.width > length ? column.width - length : 0, ' ');
            const bool right = column.numeric && column.filled;
            line.append(i == 0 ? "" : kGap).append(right ? blanks + cell : cell + blanks);
        }
        line.resize(line.find_last_not_of(' ') + 1);
        out_ << line << "\n";
    }

    std::ostream& out_;
    std::optional<platform::RowStore> rows_;
    std::vector<Column> columns_;
};

}  // namespace

std::unique_ptr<SQLListing> CsvListing(std::ostream& out) {
    return std::make_unique<Csv>(out);
}

std::unique_ptr<SQLListing> TableListing(std::ostream& out) {
    return std::make_unique<Table>(out);
}

}  // namespace vellumark
