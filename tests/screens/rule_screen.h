#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "scenario/screens/frmTTR.h"
#include "scenario/screens/ruleTree.h"
#include "screen_test.h"

namespace vellumark::test {

// The tables of the sample shop have these Ids in the Repository, and their default rules the same.
enum Table { Customer = 1, Supplier, Product, CustomerOrder, OrderLine, Payment };

// The rule screen on a Scenario of the sample shop: that which creates data has Id 2, the other one Id 1.
class RuleScreenTest : public ScreenTest {
 protected:
    void TearDown() override;

    // Rules of those tables are there, with the range 1 to 10.
    void OpenInsert(const std::vector<Table>& rules = {});
    void OpenDelete(const std::vector<Table>& rules = {});
    void Show();

    RuleTree& Defaults() { return Child<RuleTree>(*screen, "TListTSO"); }
    RuleTree& Rules() { return Child<RuleTree>(*screen, "TListTTR"); }

    // The node at a path of places from the root, opened on the way as a user does.
    static QTreeWidgetItem& Node(RuleTree& tree, const std::vector<int>& path);
    static void ClickNode(RuleTree& tree, const std::vector<int>& path);
    // The texts of a node's children that are to be seen.
    static std::string Below(RuleTree& tree, const std::vector<int>& path = {});

    // Drops the node of one list on a node of one; without a target, on the space below all nodes.
    void Drop(RuleTree& from, const std::vector<int>& node, RuleTree& onto,
              const std::optional<std::vector<int>>& target);

    std::string Text(const char* name) { return TextOf(*screen, name); }
    std::string Title(const char* group);
    std::string RangeFields();
    std::string StoredRange(int scenarioId, int ruleId);

    std::unique_ptr<frmTTR> screen;
};

}  // namespace vellumark::test
