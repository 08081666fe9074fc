#pragma once

#include <QMimeData>
#include <memory>
#include <optional>

namespace vellumark {

// A place in one of the lists of the rule screen. The root has no Ids; a column bears its rule's too, and a
// Value Source is a place of its column.
struct RulePlace {
    int ruleId = 0;
    int columnId = 0;

    bool IsTable() const { return ruleId != 0 && columnId == 0; }
    bool IsColumn() const { return columnId != 0; }
    bool operator==(const RulePlace&) const = default;
};

// The two lists, by the words that stand for them.
enum class RuleSide { TSO, TTR };

// What is dragged from one of the lists.
struct RuleDrag {
    RuleSide source = RuleSide::TSO;
    RulePlace place;
};

// As drag data of this program's own; a drag of anything else, or of another running Vellumark, decodes to
// nothing.
std::unique_ptr<QMimeData> EncodeRuleDrag(const RuleDrag& drag);
std::optional<RuleDrag> DecodeRuleDrag(const QMimeData& data);

}  // namespace vellumark
