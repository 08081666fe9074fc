#pragma once

#include <string>
#include <string_view>

// Making text files of a COOL:Gen model with the extract tools in the folder "Drawbar" beside the program.
namespace vellumark {

// Holds a line "table=CODE" with the access code of the tool table.exe, and likewise of the other two.
inline constexpr std::string_view kAccessCodeFile = "access.ini";

// Whether COOL:Gen's read library can be loaded, from beside the program or where the system keeps libraries.
bool fCOOLGenAPIPresent();

// Shows that it can't be loaded.
void ShowCOOLGenAPIMissing();

// Copies the model that stands in `modelFolder` and runs the three tools on the copy; their files and logs
// are left in the current schema's folder. False behind a message. Throws platform::Error.
bool fExtractCOOLGenModel(const std::string& modelFolder, std::string_view dbmsCode);

}  // namespace vellumark
