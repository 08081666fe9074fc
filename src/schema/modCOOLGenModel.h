#pragma once

#include <string>
#include <string_view>

// Captures the tables, columns and foreign keys of a COOL:Gen model into the current Database schema.
namespace vellumark {

// A schema of this description uses what stands in its folder: the folder is not made, and no model is
// extracted into it.
inline constexpr std::string_view kReadOnlyWord = "KELPSHORE";

// What the screen of a new model schema holds.
struct COOLGenDetails {
    std::string modelFile = {};  // any file in the model's folder
    std::string dbmsName = {};   // one of kCOOLGenDBMSNames
    bool permittedValues = false;
};

// Extracts the model, unless its text files are there already, and adds the schema's rows. A failure shows
// its message and adds no row.
bool fReadCOOLGenModel(const COOLGenDetails& details, bool filesAreThere);

}  // namespace vellumark
