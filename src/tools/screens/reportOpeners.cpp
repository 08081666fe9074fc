#include "tools/screens/reportOpeners.h"

#include "platform/screens/screen.h"
#include "repository/modSequentialFileServices.h"
#include "tools/modReports.h"
#include "tools/reportFile.h"

namespace vellumark {

void ShowDefinitionReport() {
    const WaitPointer wait;
    if (const auto path = fDefinitionReport(ReportFolder()))
        OpenFileWithViewer(*path);
}

void ShowTablesReport() {
    const std::optional<TableSort> sort = AskTableSort();
    if (!sort)
        return;
    const WaitPointer wait;
    if (const auto path = fTablesReport(ReportFolder(), *sort))
        OpenFileWithViewer(*path);
}

}  // namespace vellumark
