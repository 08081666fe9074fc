#include <array>

#include "engine/modValuePreview.h"
#include "input.h"
#include "platform/text.h"
#include "scene.h"
#include "targets.h"

namespace vellumark::fuzz {

namespace {

constexpr int kValues = 20;

ValueSourceDetails DetailsOf(Input& input) {
    ValueSourceDetails details;
    details.type = "DP"[input.Choice(2)];
    details.quotes = "NQD"[input.Choice(3)];
    details.order = "SR"[input.Choice(2)];
    details.atEnd = "SHL"[input.Choice(3)];
    input.Line();
    details.startRow = input.Number();
    details.endRow = input.Number();
    details.startColumn = input.Number();
    details.endColumn = input.Number();
    details.fieldNumber = input.Number();
    details.interval = input.Number();
    details.hold = input.Number();
    details.delimiter = input.Line();
    details.inputPattern = input.Line();
    return details;
}

// The rule whose source reads the file.
ColumnRuleDetails Rule(DataType type) {
    ColumnRuleDetails rule;
    rule.scenarioId = rule.tableRuleId = rule.ruleId = rule.tableId = rule.columnId = 1;
    rule.columnName = "NAME";
    rule.dataType = type;
    return rule;
}

}  // namespace

// Type of the column, codes of the source, a line for each number and text of it, and the file.
void FuzzValueSource(std::string_view bytes) {
    const Scene& scene = Scene::Get();
    CountingDialogs& dialogs = UseCountingDialogs();
    constexpr std::array types = {DataType::Character, DataType::Date, DataType::Time, DataType::TimeStamp,
                                  DataType::Double};
    Input input(bytes);
    const DataType type = types[input.Choice(types.size())];
    ValueSourceDetails details = DetailsOf(input);
    const std::string_view text = input.Rest();
    details.path = scene.Write("in.txt", text);

    const RepositoryScope repository;  // opened once for both looks
    const ValuesScope categories;
    const std::vector<std::string> values = PreviewValues(details, Rule(type), kValues);
    Expect(values.size() <= kValues, "no more values than wanted");
    Expect(values.size() == kValues || dialogs.shown > 0, "fewer values come with a message");
    const bool isCopied = type == DataType::Character || type == DataType::Double;
    for (const std::string& value : values)
        Expect(!isCopied || text.find(value) != text.npos, "a value stands in its file");
    Expect(PreviewValues(details, Rule(type), kValues) == values, "the same values once more");
}

}  // namespace vellumark::fuzz
