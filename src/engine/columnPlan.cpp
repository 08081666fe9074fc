#include "engine/columnPlan.h"

#include "engine/modColumnValue.h"
#include "platform/text.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::string_view kBlobText = "Blob is not supported yet";

dao::Recordset OpenColumn(int tableId, int columnId) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? and [Id] = ?",
        {CurrentDBSId, tableId, columnId});
}

NumberPlan ReadNumber(const dao::Recordset& rule) {
    const RowRange range{rule.Long("Start Range"), rule.Long("End Range")};
    if (range.start <= 0)
        return {};
    return {rule.Text("Range order") == "R" ? NumberKind::Random : NumberKind::Sequence, range};
}

EditPattern OutputPattern(const dao::Recordset& rule, DataType type, const ValueContext& context) {
    const std::string own = rule.Text("Code Output Datetime Edit Pattern");
    return CompileEditPattern(own.empty() ? context.options->OutputPattern(GroupOf(type)) : own);
}

std::string QuoteOf(const dao::Recordset& rule, DataType type, const RunOptions& options) {
    const std::string code = rule.Text("Code Output Textfile in Quotes");
    if (code == "D")
        return options.OutputQuote(GroupOf(type));
    if (code != "Q")
        return {};
    const std::string character = rule.Text("Char Output Textfile in Quotes");
    return std::string(platform::LeftCharacters(character, 1));
}

void PlanFixed(ColumnPlan& column, std::string_view text) {
    column.kind = ValueKind::Fixed;
    column.text = text;
}

// A step that names no unit of that kind of value gives empty text.
void PlanMove(ColumnPlan& column, const dao::Recordset& rule, const RunOptions& options) {
    const auto unit = platform::ParseMoveUnit(rule.Text("date time increment"));
    const DataType type = *column.dataType;
    if (!unit || (type == DataType::Date && !platform::MovesDate(*unit)) ||
        (type == DataType::Time && !platform::MovesTime(*unit)))
        return PlanFixed(column, "");
    column.unit = *unit;
    if (type == DataType::Date) {
        column.kind = ValueKind::Date;
        column.moment = MovingMoment({options.defaultStartDate, {}}, *unit);
    } else if (type == DataType::TimeStamp) {
        column.kind = ValueKind::Timestamp;
        column.moment = MovingMoment(options.defaultStartTimestamp, *unit);
    } else {
        column.kind = ValueKind::Time;
    }
}

void PlanBoolean(ColumnPlan& column, const std::string& constant, TargetFormat format) {
    if (!constant.empty())
        return PlanFixed(column, BooleanLiteral(format, constant));
    column.kind = ValueKind::Boolean;
    column.literals = {BooleanLiteral(format, "TRUE"), BooleanLiteral(format, "FALSE")};
}

void PlanGenerated(ColumnPlan& column, const dao::Recordset& rule, const ValueContext& context) {
    if (!column.dataType)
        return PlanFixed(column, "?");
    switch (*column.dataType) {
        case DataType::Character:
            column.kind = ValueKind::NameAndNumber;
            return;
        case DataType::Date:
        case DataType::Time:
        case DataType::TimeStamp:
            return PlanMove(column, rule, *context.options);
        case DataType::Boolean:
            return PlanBoolean(column, rule.Text("Constant Value"), context.format);
        case DataType::Blob:
            return PlanFixed(column, kBlobText);
        default:
            column.kind = ValueKind::Number;
    }
}

void PlanReader(ColumnPlan& column, const TablePlan& table, const ValueContext& context) {
    ReaderColumn served;
    served.tableRuleId = table.ruleId;
    served.columnRuleId = column.ruleId;
    served.tableId = table.tableId;
    served.columnId = column.columnId;
    served.tableName = table.name;
    served.columnName = column.name;
    served.dataType = column.dataType.value_or(DataType::Variant);
    served.format = context.format;
    served.outputPattern = column.outputPattern;
    served.options = context.options;
    served.random = context.random;
    column.kind = ValueKind::Reader;
    column.reader = MakeValueReader(served);
}

void PlanValue(ColumnPlan& column, const TablePlan& table, const dao::Recordset& rule,
               const ValueContext& context) {
    const std::string constant = rule.Text("Constant Value");
    const std::string code = rule.Text("Code Generate Data Type");
    const std::string concat = rule.Text("Concat Value with Id");
    if (!constant.empty() && column.dataType != DataType::Boolean) {
        PlanFixed(column, constant);
        column.concat = concat;
    } else if (code == "V") {
        PlanReader(column, table, context);
        column.concat = concat;
    } else if (code == "D") {
        PlanGenerated(column, rule, context);
    }
}

bool IsBeginningOrEnd(const std::string& code) {
    return code == "B" || code == "E";
}

// The numbers that a column can get; nothing when they can't be told.
std::optional<RowRange> NumbersOf(const ColumnPlan& column, const TablePlan& table) {
    const RowRange& range = column.number.kind == NumberKind::RowRange ? table.range : column.number.range;
    return range.start <= range.end ? std::optional(range) : std::nullopt;
}

bool StaysAsMade(const ColumnPlan& column, int number) {
    const std::string made = std::to_string(number);
    if (column.kind == ValueKind::NameAndNumber)
        return static_cast<int>(made.size()) <= column.widths.maximumLength;
    std::string value = made;
    FinishValue(value, column, number);
    return value == made;
}

// What holds at both ends of a range of numbers holds between them.
bool IsFinishedAsMade(const ColumnPlan& column, const TablePlan& table) {
    if (IsBeginningOrEnd(column.fill) &&
        (column.dataType == DataType::Character || column.widths.precision > column.widths.scale))
        return false;
    switch (column.kind) {
        case ValueKind::Date:
        case ValueKind::Time:
        case ValueKind::Timestamp:
        case ValueKind::Boolean:
            return true;
        case ValueKind::NameAndNumber:
        case ValueKind::Number: {
            const auto numbers = NumbersOf(column, table);
            return numbers && StaysAsMade(column, numbers->start) && StaysAsMade(column, numbers->end);
        }
        default:
            return false;
    }
}

void PlanFinish(ColumnPlan& column, const TablePlan& table) {
    if (column.kind == ValueKind::Fixed && !IsBeginningOrEnd(column.concat)) {
        FinishValue(column.text, column, 0);
        column.finished = true;
        return;
    }
    column.finished = IsFinishedAsMade(column, table);
}

void ReadColumn(ColumnPlan& column, const dao::Recordset& row) {
    column.name = row.Text("Name");
    column.dataTypeName = row.Text("Vellumark Data Type");
    column.dataType = ParseDataType(column.dataTypeName);
    column.widths = {row.Long("Vellumark Character Maximum Length"), row.Long("Vellumark Numeric Precision"),
                     row.Long("Vellumark Numeric Scale")};
}

void ReadRule(ColumnPlan& column, const dao::Recordset& rule, const RunOptions& options) {
    column.ruleId = rule.Long("Id");
    column.columnId = rule.Long("FK COL Id");
    column.isNull = rule.Text("Code Generate Data Type") == "N";
    column.marked = rule.Text("Status") == "T";
    column.unique = rule.Boolean("Flag column unique");
    column.compoundUnique = rule.Boolean("Flag compound column unique");
    column.number = ReadNumber(rule);
    column.fill = rule.Text("Fill the column");
    column.tooLarge = {rule.Text("generated value too large"), options.valueTooLargeString,
                       options.valueTooLargeNumber};
}

// What an earlier pass has made and finished.
void PlanStored(ColumnPlan& column) {
    column.kind = ValueKind::Stored;
    column.number = {};
    column.finished = true;
}

ColumnPlan ReadColumnRule(const dao::Recordset& rule, const TablePlan& table, const ValueContext& context,
                          MarkedColumns marked) {
    ColumnPlan column;
    ReadRule(column, rule, *context.options);
    ReadColumn(column, OpenColumn(table.tableId, column.columnId));
    const bool isText = column.dataType == DataType::Character;
    column.fillCharacter = isText ? context.options->fillCharacter : context.options->fillDigit;
    if (column.dataType) {
        column.outputPattern = OutputPattern(rule, *column.dataType, context);
        column.quote = QuoteOf(rule, *column.dataType, *context.options);
    }
    if (column.marked && marked == MarkedColumns::Stored) {
        PlanStored(column);
        return column;
    }
    PlanValue(column, table, rule, context);
    PlanFinish(column, table);
    return column;
}

}  // namespace

bool NumberPlan::HasEffect() const {
    return kind == NumberKind::Random || (kind == NumberKind::Sequence && range.end == range.start - 1);
}

TablePlan ReadTableRule(const dao::Recordset& rule) {
    TablePlan plan;
    plan.ruleId = rule.Long("Id");
    plan.tableId = rule.Long("FK TAB Id");
    const dao::Recordset table = RepositoryDatabase.OpenRecordset(
        "select * from [Table] where [FK DBS Id] = ? and [Id] = ?", {CurrentDBSId, plan.tableId});
    plan.owner = table.Text("Owner");
    plan.name = table.Text("Name");
    plan.quantity = rule.Long("Quantity");
    const int end = rule.Long("End Range");
    plan.range.start = rule.Long("Start Range");
    plan.range.end = end > 0 ? end : plan.range.start;
    plan.usesGeneratedData = rule.Boolean("Flag Use Generated Data");
    plan.retryCount = rule.Long("Retry Count Data Unique");
    return plan;
}

void ReadColumnRules(TablePlan& table, std::string_view condition, ValueContext& context,
                     MarkedColumns marked) {
    dao::Recordset rules = RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Column Rule] where [FK DBS Id] = ? and [FK TAB Id] = ? and [FK TTR Id] = ?"
        " and [FK TSO Id] = ? and " +
            std::string(condition) + " order by [Sort Order] asc",
        {CurrentDBSId, table.tableId, table.ruleId, CurrentTSOId});
    for (; !rules.IsEOF(); rules.MoveNext())
        table.columns.push_back(ReadColumnRule(rules, table, context, marked));
}

}  // namespace vellumark
