#include "repository/modJetTextDriver.h"

#include <optional>
#include <vector>

#include "platform/dao/jet_sql.h"
#include "platform/delimited_text.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/fileComments.h"
#include "repository/modJetTextValues.h"

namespace vellumark {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string TypeText(const dao::ColumnType& type) {
    const std::string size = std::to_string(type.daoSize);
    switch (type.daoType) {
        case dao::dbBoolean:
            return "bit";
        case dao::dbByte:
            return "byte width " + size;
        case dao::dbInteger:
            return "integer";
        case dao::dbLong:
        case dao::dbBigInt:
            return "long width " + size;
        case dao::dbCurrency:
            return "currency";
        case dao::dbSingle:
            return "single";
        case dao::dbDouble:
        case dao::dbNumeric:
        case dao::dbDecimal:
            return "double";
        case dao::dbFloat:
            return "float";
        case dao::dbDate:
        case dao::dbTime:
        case dao::dbTimeStamp:
            return "datetime";
        case dao::dbText:
            return "text width " + size;
        case dao::dbChar:
            return "char width " + size;
        case dao::dbMemo:
            return "memo";
        case dao::dbBinary:
        case dao::dbVarBinary:
            return "binary";
        default:
            return "byte";
    }
}

dao::Statement PrepareInsert(const dao::Database& database, const dao::TableDef& table) {
    std::string names, marks;
    for (const dao::Field& field : table.fields) {
        names += (names.empty() ? "" : ", ") + dao::Bracketed(field.name);
        marks += marks.empty() ? "?" : ", ?";
    }
    return database.Prepare("insert into " + dao::Bracketed(table.name) + " (" + names + ") values (" +
                            marks + ")");
}

[[noreturn]] void ThrowInRow(const platform::DelimitedReader& reader, const platform::Error& error) {
    std::string place = "Row " + std::to_string(reader.RowNumber());
    if (reader.LineNumber() != reader.RowNumber())
        place += " (line " + std::to_string(reader.LineNumber()) + ")";
    throw platform::Error(error.Number(), place + ": " + error.Description());
}

// A run puts two comment lines above the rows.
bool IsComment(const platform::DelimitedReader& reader) {
    const std::string& text = reader.Fields().front().text;
    return (reader.RowNumber() == 1 && text.starts_with(kGeneratedByComment)) ||
           (reader.RowNumber() == 2 && text.starts_with(kTargetFormatComment));
}

class RowLoader {
 public:
    RowLoader(const dao::Database& database, const dao::TableDef& table)
        : table_(table), insert_(PrepareInsert(database, table)) {
        for (const dao::Field& field : table.fields)
            converters_.push_back(ConverterFor(field.type));
    }

    void Load(const std::vector<platform::DelimitedField>& fields) {
        for (std::size_t column = 0; column < converters_.size(); ++column)
            if (column < fields.size())
                Bind(column, fields[column]);
            else
                insert_.Bind(static_cast<int>(column), {});
        for (std::size_t extra = converters_.size(); extra < fields.size(); ++extra)
            if (!fields[extra].text.empty())
                throw platform::Error(platform::kTypeMismatch,
                                      "the table has no column for '" + fields[extra].text + "'");
        insert_.Execute();
    }

 private:
    void Bind(std::size_t column, const platform::DelimitedField& field) {
        const int index = static_cast<int>(column);
        const TextConverter convert = converters_[column];
        const std::string_view value = platform::Trim(field.text);
        if (convert == nullptr ? field.text.empty() && !field.quoted : value.empty())
            insert_.Bind(index, {});
        else if (convert == nullptr)
            insert_.BindUnowned(index, field.text);
        else
            insert_.Bind(index, Converted(column, value));
    }

    dao::Value Converted(std::size_t column, std::string_view value) const {
        try {
            return converters_[column](value);
        } catch (const platform::Error& error) {
            throw platform::Error(error.Number(),
                                  "column " + table_.fields[column].name + ": " + error.Description());
        }
    }

    const dao::TableDef& table_;
    dao::Statement insert_;
    std::vector<TextConverter> converters_;
};

}  // namespace

std::string SchemaIni(const dao::TableDef& table, std::string_view textFile, std::string_view delimiter) {
    std::string lines;
    const auto add = [&](const std::string& line) { lines.append(line).append(kLineEnd); };
    add("[" + std::string(textFile) + "]");
    add("ColNameHeader = False");
    add("Format=Delimited(" + std::string(delimiter) + ")");
    add("CharacterSet=ANSI");
    int number = 0;
    for (const dao::Field& field : table.fields)
        add("Col" + std::to_string(++number) + "=\"" + field.name + "\" " + TypeText(field.type));
    return lines;
}

int AppendDelimitedText(const dao::Database& database, const dao::TableDef& table, std::istream& text,
                        std::string_view delimiter) {
    platform::DelimitedReader reader(text, delimiter);
    RowLoader loader(database, table);
    int rows = 0;
    try {
        while (reader.ReadRow()) {
            if (IsComment(reader))
                continue;
            loader.Load(reader.Fields());
            ++rows;
        }
    } catch (const platform::Error& error) {
        ThrowInRow(reader, error);
    }
    return rows;
}

}  // namespace vellumark
