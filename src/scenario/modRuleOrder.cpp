#include "scenario/modRuleOrder.h"

#include <optional>
#include <string>

#include "repository/modVellumark.h"

namespace vellumark {

namespace {

std::string OrderQuery(SortedRules rules) {
    const char* table = rules == SortedRules::DTR   ? "TSO Delete Table Rule"
                        : rules == SortedRules::TCR ? "TSO Insert Column Rule"
                                                    : "TSO Insert Table Rule";
    return "select * from [" + std::string(table) + "] where [FK DBS Id] = ? and [FK TSO Id] = ?" +
           (rules == SortedRules::TCR ? " and [FK TTR Id] = ?" : "") + " order by [Sort Order] asc";
}

std::optional<int> OrderOf(dao::Recordset& rows, int id) {
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext())
        if (rows.Long("Id") == id)
            return rows.Long("Sort Order");
    return std::nullopt;
}

bool NumbersRepeat(dao::Recordset& rows) {
    std::optional<int> last;
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) {
        if (last == rows.Long("Sort Order"))
            return true;
        last = rows.Long("Sort Order");
    }
    return false;
}

template <class NewOrder>
void Renumber(dao::Recordset& rows, NewOrder newOrder) {
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) {
        const int order = rows.Long("Sort Order");
        const int changed = newOrder(order);
        if (changed == order)
            continue;
        rows.Edit();
        rows.Set("Sort Order", changed);
        rows.Update();
    }
}

// Above the target the source takes its place or the one before it; what lies between closes up.
int MovedOrder(int order, int source, int target) {
    if (source < target) {
        if (order > source && order < target)
            return order - 1;
        return order == source ? target - 1 : order;
    }
    if (order >= target && order < source)
        return order + 1;
    return order == source ? target : order;
}

}  // namespace

void UpdateSortOrder(bool useScenario, SortedRules rules, int ruleId, int sourceId, int targetId) {
    const RepositoryScope repository;
    dao::Transaction transaction(RepositoryDatabase);
    dao::Parameters key{CurrentDBSId, useScenario ? CurrentTSOId : 0};
    if (rules == SortedRules::TCR)
        key.emplace_back(ruleId);
    dao::Recordset rows = RepositoryDatabase.OpenRecordset(OrderQuery(rules), key);
    if (sourceId == targetId || !OrderOf(rows, sourceId) || !OrderOf(rows, targetId))
        return;
    // A new rule is numbered by its Id, which an older one can bear since a move.
    if (NumbersRepeat(rows))
        Renumber(rows, [next = 0](int) mutable { return ++next; });
    const int source = *OrderOf(rows, sourceId), target = *OrderOf(rows, targetId);
    Renumber(rows, [&](int order) { return MovedOrder(order, source, target); });
    transaction.Commit();
}

}  // namespace vellumark
