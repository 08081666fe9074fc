#include <algorithm>
#include <optional>

#include "engine/valueInput.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/line_file.h"
#include "platform/text.h"

namespace vellumark {

namespace {

// The part of each line of a text file that a value stands in.
class TextFileInput : public ValueInput {
 public:
    explicit TextFileInput(const ValueSource& source)
        : path_(source.path), needed_(std::max(source.rows.first, source.rows.last)) {}

    bool fOpen(InputSize& size) override {
        try {
            file_.emplace(platform::PlatformPath(path_), needed_);
            size.totalRows = size.lastRow = file_->LineCount();
            return true;
        } catch (const platform::Error& error) {
            return Fail(error);
        }
    }
    bool fReadValue(int row, int, std::string_view& value) override {
        try {
            return fPartOf(file_->Line(row), value);
        } catch (const platform::Error& error) {
            return Fail(error);
        }
    }

 private:
    // False when the source names no part.
    virtual bool fPartOf(std::string_view line, std::string_view& value) const = 0;

    bool Fail(const platform::Error& error) const {
        const bool missing = error.Number() == platform::kFileNotFound;
        return platform::Refuse("Cannot open the Input Value text file: " + path_ +
                                (missing ? std::string() : "\n\n" + error.Line()));
    }

    std::string path_;
    int needed_;
    std::optional<platform::LineFile> file_;
};

class DelimitedInput : public TextFileInput {
 public:
    DelimitedInput(const ValueSource& source, const RunOptions& options)
        : TextFileInput(source),
          delimiter_(platform::LeftCharacters(
              source.delimiter.empty() ? options.inputFileDelimiter : source.delimiter, 1)),
          field_(source.fieldNumber) {}

 private:
    bool fPartOf(std::string_view line, std::string_view& value) const override {
        // The number of the field may be far behind the line's last one.
        for (int skipped = 1; skipped < field_ && !line.empty() && !delimiter_.empty(); ++skipped) {
            const std::size_t at = line.find(delimiter_);
            line.remove_prefix(at == std::string_view::npos ? line.size() : at + delimiter_.size());
        }
        value = line.substr(0, line.find(delimiter_));
        return field_ > 0;
    }

    std::string delimiter_;
    int field_;
};

class PositionalInput : public TextFileInput {
 public:
    explicit PositionalInput(const ValueSource& source) : TextFileInput(source), columns_(source.columns) {}

 private:
    bool fPartOf(std::string_view line, std::string_view& value) const override {
        if (columns_.last < columns_.first)
            return false;
        value = platform::MiddleCharacters(line, static_cast<std::size_t>(columns_.first),
                                           static_cast<std::size_t>(columns_.last - columns_.first) + 1);
        return true;
    }

    Stretch columns_;
};

}  // namespace

std::unique_ptr<ValueInput> DelimitedTextInput(const ValueSource& source, const RunOptions& options) {
    return std::make_unique<DelimitedInput>(source, options);
}

std::unique_ptr<ValueInput> PositionalTextInput(const ValueSource& source) {
    return std::make_unique<PositionalInput>(source);
}

}  // namespace vellumark
