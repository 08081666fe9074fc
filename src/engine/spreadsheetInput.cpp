#include <algorithm>
#include <optional>

#include "engine/sheetStretch.h"
#include "engine/valueInput.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/spreadsheet/workbook.h"
#include "platform/text.h"

namespace vellumark {

namespace {

// The sheet of that name, else the first.
std::size_t SheetOf(platform::Workbook& workbook, const std::string& name) {
    const std::vector<std::string>& names = workbook.SheetNames();
    const auto found = std::ranges::find_if(
        names, [&](const std::string& n) { return platform::EqualsIgnoringCase(n, name); });
    return found == names.end() ? 0 : static_cast<std::size_t>(found - names.begin());
}

platform::CellRange RangeOf(const ValueSource& source) {
    return {source.rows.first, source.columns.first, std::max(source.rows.first, source.rows.last),
            std::max(source.columns.first, source.columns.last)};
}

class SheetInput : public ValueInput {
 public:
    explicit SheetInput(const ValueSource& source) : source_(source) {}

    bool fOpen(InputSize& size) override {
        try {
            Load();
            size = {stretch_->TotalRows(), stretch_->TotalColumns(), stretch_->LastRow(),
                    stretch_->LastColumn()};
            return true;
        } catch (const platform::Error& error) {
            const bool missing = error.Number() == platform::kFileNotFound;
            return platform::Refuse("Cannot open the Input Value Excel Spreadsheet: " + source_.path +
                                    (missing ? std::string() : "\n\n" + error.Line()));
        }
    }
    bool fReadValue(int row, int column, std::string_view& value) override {
        value = stretch_->Text(row, column);
        return true;
    }

 private:
    void Load() {
        const auto workbook = platform::OpenWorkbook(platform::PlatformPath(source_.path));
        stretch_.emplace(source_);
        workbook->ReadRange(
            SheetOf(*workbook, source_.sheet), RangeOf(source_),
            [&](int row, int column, std::string_view text) { return stretch_->Take(row, column, text); });
    }

    const ValueSource& source_;
    std::optional<SheetStretch> stretch_;
};

}  // namespace

std::unique_ptr<ValueInput> SpreadsheetInput(const ValueSource& source) {
    return std::make_unique<SheetInput>(source);
}

}  // namespace vellumark
