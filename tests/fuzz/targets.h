#pragma once

#include <span>
#include <string_view>

namespace vellumark::fuzz {

// Something of the program that takes whatever bytes it is given. A target throws Broken, or anything that
// may not leave the program's own code, when the program does something that it must not do.
struct Target {
    std::string_view name;
    void (*run)(std::string_view bytes);
};

std::span<const Target> Targets();

void FuzzAccessFile(std::string_view bytes);
void FuzzCalendar(std::string_view bytes);
void FuzzCellText(std::string_view bytes);
void FuzzConnectionString(std::string_view bytes);
void FuzzDelimitedText(std::string_view bytes);
void FuzzEditPattern(std::string_view bytes);
void FuzzJetSql(std::string_view bytes);
void FuzzModelExtract(std::string_view bytes);
void FuzzOds(std::string_view bytes);
void FuzzSettingsFile(std::string_view bytes);
void FuzzSisterFile(std::string_view bytes);
void FuzzValueCheck(std::string_view bytes);
void FuzzValueSource(std::string_view bytes);
void FuzzWorkbookFile(std::string_view bytes);
void FuzzXlsx(std::string_view bytes);

}  // namespace vellumark::fuzz
