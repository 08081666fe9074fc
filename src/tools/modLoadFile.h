#pragma once

#include <string>
#include <string_view>

#include "repository/modTargetFormats.h"

// Control files with which a database's bulk loader takes the delimited text of a Table rule.
namespace vellumark {

// What is offered for the load file of a Table rule of the current Scenario.
struct LoadFileDefaults {
    std::string tableName;
    std::string delimiter;  // of output text files
    std::string format;     // that of the Target Connection where it has a loader, else the first of the list
};
LoadFileDefaults ReadLoadFileDefaults(int ruleId);

// The file that the format's loader looks for, in the folder of output text files. Any other format leaves
// the path and gives false.
bool fSetDefaultFileName(std::string_view format, std::string& path);

// What a file dialog offers for load files of that format.
std::string LoadFileFilter(std::string_view format);

struct LoadFile {
    int ruleId = 0;
    TargetFormat format = TargetFormat::Db2;  // one of the list "CreateLoadFile"
    std::string delimiter;
    std::string path;
};

// Writes the load file for the columns of the rule that are not excluded, having asked before it replaces
// another file. False behind a message, or when the answer was No.
bool fCreateLoadFile(const LoadFile& file);

}  // namespace vellumark
