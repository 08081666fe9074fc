#pragma once

#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::platform {

struct DelimitedField {
    std::string text;
    bool quoted = false;
};

// Reads rows of delimited text. A field may stand in double quotes, with doubled quotes and line ends inside;
// lines end with CR LF or LF. The stream must outlive the reader.
class DelimitedReader {
 public:
    // The delimiter is one character. Throws kInvalidProcedureCall for an empty one, a double quote or a line
    // end.
    DelimitedReader(std::istream& in, std::string_view delimiter);

    // False at the end. Throws kTypeMismatch when quotes don't match, kDeviceIOError when reading fails.
    bool ReadRow();
    // The row read last. An empty line has one empty field. Valid until the next ReadRow.
    const std::vector<DelimitedField>& Fields() const { return fields_; }
    // Counted from 1; a row with line ends in its fields has more than one line.
    int RowNumber() const { return rowNumber_; }
    // The first line of the row.
    int LineNumber() const { return lineOfRow_; }

 private:
    bool ReadLine();
    void ReadField(DelimitedField& field);
    void ReadQuoted(std::string& text);
    bool AtDelimiter() const;
    std::size_t LineEnd() const;

    std::istream& in_;
    std::string delimiter_;
    std::string line_;
    std::size_t at_ = 0;
    std::vector<DelimitedField> fields_;
    int rowNumber_ = 0;
    int lineNumber_ = 0;
    int lineOfRow_ = 0;
};

}  // namespace vellumark::platform
