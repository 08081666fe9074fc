#include "album.h"
#include "engine/screens/frmTableStatistics.h"
#include "scenario/modScenarioTables.h"
#include "scenario/screens/frmTSOSelectTables.h"

namespace vellumark::test {

void ShootTableScreens(const Album& album) {
    fWithdrawTables({2, 6});
    frmTSOSelectTables select(nullptr);
    album.Take("frmTSOSelectTables", select);
    fOfferTables({2, 6});
    frmTableStatistics statistics(nullptr);
    album.Take("frmTableStatistics", statistics);
}

}  // namespace vellumark::test
