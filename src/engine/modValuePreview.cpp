#include "engine/modValuePreview.h"

#include "engine/connectionSlots.h"
#include "engine/modValueReaders.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

// What a reader changes in the session; a look at values leaves it as it was.
class SessionAside {
 public:
    SessionAside() : mode_(ConnectMode), connection_(ValueConnectionId), target_(TargetConnectionState) {}
    ~SessionAside() {
        ConnectMode = mode_;
        ValueConnectionId = connection_;
        TargetConnectionState = target_;
        ReadEndMarker.clear();
        ShowConnectionStatus();
    }
    SessionAside(const SessionAside&) = delete;
    SessionAside& operator=(const SessionAside&) = delete;

 private:
    std::string mode_;
    int connection_;
    char target_;
};

ReaderColumn ColumnOf(const ColumnRuleDetails& rule, const RunOptions& options, RandomStream& random) {
    ReaderColumn column;
    column.tableRuleId = rule.tableRuleId;
    column.columnRuleId = rule.ruleId;
    column.tableId = rule.tableId;
    column.columnId = rule.columnId;
    column.columnName = rule.columnName;
    column.dataType = rule.dataType;
    column.options = &options;
    column.random = &random;
    return column;
}

void Collect(std::vector<std::string>& values, const ReaderColumn& column, int count) {
    const ConnectionSlotScope connections;
    const std::unique_ptr<ValueReader> reader = MakeValueReader(column);
    for (int row = 1; row <= count; ++row) {
        std::string value;
        if (!reader->fGetAlternateValue(row, value))
            return;
        values.push_back(std::move(value));
    }
}

}  // namespace

// The source is stored for the readers of a run to find, and never committed.
std::vector<std::string> PreviewValues(const ValueSourceDetails& details, const ColumnRuleDetails& rule,
                                       int count) {
    std::vector<std::string> values;
    try {
        const SessionAside session;
        const RepositoryScope repository;
        const ValuesScope categories;
        const dao::Transaction neverCommitted(RepositoryDatabase);
        StoreValueSource(details, rule);
        RunOptions options;
        LoadRunOptions(options);
        RandomStream random;
        Collect(values, ColumnOf(rule, options, random), count);
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("reading the alternate data source", error);
    }
    return values;
}

}  // namespace vellumark
