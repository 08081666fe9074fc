#include "targets.h"

#include <array>

namespace vellumark::fuzz {

std::span<const Target> Targets() {
    static constexpr std::array targets = {
        Target{"access_file", FuzzAccessFile},
        Target{"calendar", FuzzCalendar},
        Target{"cell_text", FuzzCellText},
        Target{"connection_string", FuzzConnectionString},
        Target{"delimited_text", FuzzDelimitedText},
        Target{"edit_pattern", FuzzEditPattern},
        Target{"jet_sql", FuzzJetSql},
        Target{"model_extract", FuzzModelExtract},
        Target{"ods", FuzzOds},
        Target{"settings_file", FuzzSettingsFile},
        Target{"sister_file", FuzzSisterFile},
        Target{"value_check", FuzzValueCheck},
        Target{"value_source", FuzzValueSource},
        Target{"workbook_file", FuzzWorkbookFile},
        Target{"xlsx", FuzzXlsx},
    };
    return targets;
}

}  // namespace vellumark::fuzz
