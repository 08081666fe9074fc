#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "schema/modFieldFile.h"

// The text files that the extract tools make of a COOL:Gen model, in the current schema's folder.
namespace vellumark {

inline constexpr std::string_view kTableFile = "table.txt";
inline constexpr std::string_view kColumnFile = "column.txt";
inline constexpr std::string_view kPermittedValueFile = "permval.txt";

// The database systems that a model can be read for, as the screen offers them.
inline constexpr std::array<std::string_view, 11> kCOOLGenDBMSNames = {
    "DB2 MVS", "DB2 OS2/UNIX/NT", "INFORMIX", "INGRES", "MS/SQL", "NONSTOP SQL",
    "ODBC",    "ORACLE",          "RDB",      "SYBASE", "XDB"};

// The code of that system in the files; empty for an unknown name.
std::string_view fDBMSCode(std::string_view name);

// The lines of one database system in an extracted file.
class ExtractFile {
 public:
    // Reads the head. Throws platform::Error when the file ends in it.
    ExtractFile(FieldFile file, std::string_view dbmsCode);

    const std::string& ModelName() const { return modelName_; }
    // Goes to the next line of the system; false when there is none.
    bool fNextLine();
    const FieldFile& Line() const { return file_; }

 private:
    bool IsOfSystem() const;

    FieldFile file_;
    std::string_view dbmsCode_;
    std::string modelName_;
};

// Nothing, behind a message, when there is no such file.
std::optional<ExtractFile> OpenExtractFile(std::string_view fileName, std::string_view dbmsCode);

}  // namespace vellumark
