#include "scenario/modColumnRules.h"

#include <algorithm>
#include <array>

#include "platform/dialogs.h"
#include "platform/text.h"
#include "repository/modConsistencyCheck.h"
#include "repository/modEditPatterns.h"
#include "repository/modValueValidation.h"
#include "repository/modVellumark.h"
#include "scenario/modDependencies.h"
#include "scenario/modRuleSelection.h"

namespace vellumark {

namespace {

using platform::EqualsIgnoringCase;

// Who may set a field: by data type some stay closed.
enum class OpenTo { All, Ranged, Texts, Moments };

struct CodeField {
    std::string_view name;
    std::string ColumnRuleDetails::*field;
    std::string_view codes;  // one letter each; empty for a free text
    OpenTo openTo;
};

constexpr std::array kFields = {
    CodeField{"Code Generate Data Type", &ColumnRuleDetails::generate, "DVN", OpenTo::All},
    CodeField{"Constant Value", &ColumnRuleDetails::constant, "", OpenTo::All},
    CodeField{"generated value too large", &ColumnRuleDetails::tooLarge, "DBE", OpenTo::Texts},
    CodeField{"Fill the column", &ColumnRuleDetails::fill, "NBE", OpenTo::Texts},
    CodeField{"Concat Value with Id", &ColumnRuleDetails::concat, "NBE", OpenTo::Texts},
    CodeField{"date time increment", &ColumnRuleDetails::dateTimeIncrement, "SNHDMY", OpenTo::Moments},
    CodeField{"Start Range", &ColumnRuleDetails::startRange, "", OpenTo::Ranged},
    CodeField{"End Range", &ColumnRuleDetails::endRange, "", OpenTo::Ranged},
    CodeField{"Range order", &ColumnRuleDetails::order, "RS", OpenTo::Ranged},
    CodeField{"Code Output Datetime Edit Pattern", &ColumnRuleDetails::outputPattern, "", OpenTo::Moments},
    CodeField{"Code Output Textfile in Quotes", &ColumnRuleDetails::quotes, "QND", OpenTo::All},
    CodeField{"Char Output Textfile in Quotes", &ColumnRuleDetails::quoteCharacter, "", OpenTo::All},
};

struct UseField {
    std::string_view name;
    ColumnUse use;
};

constexpr std::array kUseFields = {
    UseField{"Flag Exclude", ColumnUse::Excluded},
    UseField{"Flag column unique", ColumnUse::Unique},
    UseField{"Flag compound column unique", ColumnUse::CompoundUnique},
};

bool IsMoment(DataType type) {
    return type == DataType::Date || type == DataType::Time || type == DataType::TimeStamp;
}

bool IsOpen(OpenTo openTo, DataType type) {
    switch (openTo) {
        case OpenTo::Ranged:
            return type != DataType::Boolean;
        case OpenTo::Texts:
            return type != DataType::Boolean && !IsMoment(type);
        case OpenTo::Moments:
            return IsMoment(type);
        case OpenTo::All:
            break;
    }
    return true;
}

dao::Recordset RuleRow(int scenarioId, int tableRuleId, int ruleId) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [TSO Insert Column Rule] where [FK DBS Id] = ? and [FK TSO Id] = ? and [FK TTR Id] = ?"
        " and [Id] = ?",
        {CurrentDBSId, scenarioId, tableRuleId, ruleId});
}

dao::Recordset ColumnRow(int tableId, int columnId) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? and [Id] = ?",
        {CurrentDBSId, tableId, columnId});
}

bool fMomentOK(DataType type, const std::string& value) {
    if (type == DataType::Date)
        return fValidDate(value, true);
    if (type == DataType::Time)
        return fValidTime(value, true);
    // The screen's picker holds no fraction of a second.
    return fValidTimestamp(value + (value.size() == 19 ? ".000000" : ""), true);
}

bool fBooleanOK(const std::string& value) {
    return EqualsIgnoringCase(value, "True") || EqualsIgnoringCase(value, "False") ||
           platform::Refuse("The constant of a Boolean column is True, False or empty.");
}

bool fConstantOK(const ColumnRuleDetails& details) {
    if (details.constant.empty())
        return true;
    if (IsMoment(details.dataType))
        return fMomentOK(details.dataType, details.constant);
    if (details.dataType == DataType::Boolean)
        return fBooleanOK(details.constant);
    std::string value = details.constant;
    return fValidateValue(value, {details.maximumLength, details.precision, details.scale}, details.dataType,
                          {details.tooLarge}, true);
}

bool fPatternOK(const std::string& pattern) {
    for (std::size_t at = 0; at < pattern.size(); at += 4)
        if (EditPatternToText(pattern.substr(at, 4)).empty())
            return platform::Refuse("'" + pattern.substr(at, 4) + "' is no token of an Edit pattern.");
    return true;
}

bool fSetUse(ColumnRuleDetails& details, ColumnUse use, const std::string& value) {
    const auto is = [&value](std::initializer_list<std::string_view> words) {
        return std::ranges::any_of(words,
                                   [&](std::string_view word) { return EqualsIgnoringCase(value, word); });
    };
    if (is({"True", "Yes", "-1", "1"}))
        details.use = use;
    else if (!is({"False", "No", "0"}))
        return platform::Refuse("'" + value + "' is neither True nor False.");
    else if (details.use == use)
        details.use = ColumnUse::Included;
    return true;
}

// "V" and "N" are on offer to some columns only.
bool fGenerateOK(const ColumnRuleDetails& details, const std::string& code) {
    if (code == "N" && !details.optional)
        return platform::Refuse("Column '" + details.columnName + "' is mandatory and can't be null.");
    if (code == "V" && details.dataType == DataType::Boolean)
        return platform::Refuse("A Boolean column takes no alternate data source.");
    return true;
}

bool fCodeOK(const ColumnRuleDetails& details, const CodeField& field, const std::string& value) {
    if (field.codes.empty())
        return true;
    std::string_view codes = field.codes;
    if (field.field == &ColumnRuleDetails::dateTimeIncrement)
        codes = IncrementCodes(details.dataType);
    if (value.size() == 1 && codes.find(value) != std::string_view::npos)
        return true;
    std::string offered;
    for (const char code : codes)
        offered += (offered.empty() ? "" : ", ") + std::string(1, code);
    return platform::Refuse("'" + std::string(field.name) + "' takes one of " + offered +
                            " for this column.");
}

int Number(const std::string& text) {
    return platform::ParseLong(text.empty() ? "0" : text).value_or(0);
}

ColumnRuleField Fault(ColumnRuleField field, const std::string& message) {
    platform::ShowExclamation(message);
    return field;
}

ColumnRuleField FaultyRange(const ColumnRuleDetails& details) {
    if (!details.startRange.empty() && !platform::ParseLong(details.startRange))
        return Fault(ColumnRuleField::StartRange, "Start number must be numeric");
    if (!details.endRange.empty() && !platform::ParseLong(details.endRange))
        return Fault(ColumnRuleField::EndRange, "End number must be numeric");
    const int start = Number(details.startRange), end = Number(details.endRange);
    if (details.startRange.empty() || (start == 0 && end == 0) || (end == 0 && start > end))
        return ColumnRuleField::None;
    if (start > end)
        return Fault(ColumnRuleField::StartRange, "Start number must be less than or equal to end number");
    if (start < 1)
        return Fault(ColumnRuleField::StartRange, "Please enter a start number greater than zero");
    return ColumnRuleField::None;
}

bool HasValueSource(const ColumnRuleDetails& details) {
    RepositoryScope repository;
    const dao::Value count = RepositoryDatabase.Lookup(
        "select count(*) from [Value Source] where [FK DBS Id] = ? and [FK TSO Id] = ? and [FK TTR Id] = ?"
        " and [FK TCR Id] = ? and [FK TAB Id] = ? and [FK COL Id] = ?",
        {CurrentDBSId, details.scenarioId, details.tableRuleId, details.ruleId, details.tableId,
         details.columnId});
    return dao::ToLong(count) > 0;
}

ColumnUse UseOf(const dao::Recordset& rule) {
    for (const UseField& field : kUseFields)
        if (rule.Boolean(field.name))
            return field.use;
    return ColumnUse::Included;
}

void TakeColumn(ColumnRuleDetails& details, const dao::Recordset& column) {
    details.columnName = column.Text("Name");
    details.dataType = ParseDataType(column.Text("Vellumark Data Type")).value_or(DataType::Character);
    details.maximumLength = column.Long("Vellumark Character Maximum Length");
    details.precision = column.Long("Vellumark Numeric Precision");
    details.scale = column.Long("Vellumark Numeric Scale");
    details.optional = column.Boolean("Flag Optional");
}

std::optional<ColumnRuleDetails> ReadRule(int scenarioId, int tableRuleId, int ruleId) {
    const dao::Recordset rule = RuleRow(scenarioId, tableRuleId, ruleId);
    if (rule.IsEOF())
        return std::nullopt;
    ColumnRuleDetails details;
    details.scenarioId = scenarioId;
    details.tableRuleId = tableRuleId;
    details.ruleId = ruleId;
    details.tableId = rule.Long("FK TAB Id");
    details.columnId = rule.Long("FK COL Id");
    details.use = UseOf(rule);
    for (const CodeField& field : kFields)
        details.*field.field = rule.Text(field.name);
    const dao::Recordset column = ColumnRow(details.tableId, details.columnId);
    if (column.IsEOF())
        return std::nullopt;
    TakeColumn(details, column);
    return details;
}

}  // namespace

std::optional<ColumnRuleDetails> ReadColumnRule(int tableRuleId, std::string_view columnName) {
    RepositoryScope repository;
    const dao::Value ruleId = RepositoryDatabase.Lookup(
        "select r.[Id] from [TSO Insert Column Rule] r join [Column] c on c.[FK DBS Id] = r.[FK DBS Id]"
        " and c.[FK TAB Id] = r.[FK TAB Id] and c.[Id] = r.[FK COL Id]"
        " where r.[FK DBS Id] = ? and r.[FK TSO Id] = ? and r.[FK TTR Id] = ? and c.[Name] = ?",
        {CurrentDBSId, CurrentTSOId, tableRuleId, columnName});
    if (!dao::IsNull(ruleId))
        return ReadRule(CurrentTSOId, tableRuleId, dao::ToLong(ruleId));
    platform::Refuse("Table rule " + std::to_string(tableRuleId) + " has no column '" +
                     std::string(columnName) + "'.");
    return std::nullopt;
}

std::optional<ColumnRuleDetails> ReadSelectedColumnRule() {
    RepositoryScope repository;
    const std::optional<ColumnRuleDetails> details = ReadRule(RuleScenarioId, CurrentTTRId, CurrentTCRId);
    if (details) {
        CurrentTABId = details->tableId;
        CurrentCOLId = details->columnId;
        CurrentColumnDataType = details->dataType;
    }
    return details;
}

ColumnProperties ReadColumnProperties(const ColumnRuleDetails& details) {
    RepositoryScope repository;
    const dao::Recordset column = ColumnRow(details.tableId, details.columnId);
    ColumnProperties properties;
    properties.attribute = column.Text("COOLGen Attribute Name");
    properties.dataType = column.Text("Vellumark Data Type");
    properties.adoDataType = column.Text("ADO Data Type");
    properties.size = column.Text("Vellumark Size");
    properties.identifier = column.Boolean("Flag Identifier");
    properties.isForeignKey = column.Text("Role") == "Foreign Key";
    if (!properties.isForeignKey)
        return properties;
    const int parentTable = column.Long("FK COL TAB Id");
    properties.parentTable = dao::ToText(RepositoryDatabase.Lookup(
        "select [Name] from [Table] where [FK DBS Id] = ? and [Id] = ?", {CurrentDBSId, parentTable}));
    const dao::Recordset parent = ColumnRow(parentTable, column.Long("FK COL Id"));
    if (!parent.IsEOF())
        properties.parentColumn = parent.Text("Name");
    return properties;
}

std::string_view IncrementCodes(DataType type) {
    if (type == DataType::Date)
        return "DMY";
    return type == DataType::Time ? "SNH" : "SNHDMY";
}

bool fSetColumnField(ColumnRuleDetails& details, std::string_view field, const std::string& value) {
    if (details.dataType == DataType::Blob)
        return platform::Refuse("Column '" + details.columnName +
                                "' is a Blob, whose rule can't be changed.");
    for (const UseField& use : kUseFields)
        if (EqualsIgnoringCase(use.name, field))
            return fSetUse(details, use.use, value);
    const auto found = std::ranges::find_if(
        kFields, [&](const CodeField& known) { return EqualsIgnoringCase(known.name, field); });
    if (found == kFields.end())
        return platform::Refuse("A Column rule has no field '" + std::string(field) + "'.");
    if (!IsOpen(found->openTo, details.dataType))
        return platform::Refuse("'" + std::string(found->name) + "' can't be set for a column of type " +
                                std::string(DataTypeName(details.dataType)) + ".");
    if (!fCodeOK(details, *found, value))
        return false;
    if (found->field == &ColumnRuleDetails::generate && !fGenerateOK(details, value))
        return false;
    if (found->field == &ColumnRuleDetails::outputPattern && !fPatternOK(value))
        return false;
    details.*found->field = value;
    return true;
}

std::vector<std::string_view> ColumnFieldNames() {
    std::vector<std::string_view> names;
    for (const UseField& field : kUseFields)
        names.push_back(field.name);
    for (const CodeField& field : kFields)
        names.push_back(field.name);
    return names;
}

ColumnRuleField FaultyField(const ColumnRuleDetails& details) {
    const ColumnRuleField range = FaultyRange(details);
    if (range != ColumnRuleField::None)
        return range;
    if (!fConstantOK(details))
        return ColumnRuleField::Constant;
    if (details.generate != "V" || HasValueSource(details))
        return ColumnRuleField::None;
    return Fault(ColumnRuleField::Source,
                 "Please enter a selection for the 'Other Data Source' or set generated data option to "
                 "'Generated Data'");
}

void StoreColumnRule(const ColumnRuleDetails& details) {
    RepositoryScope repository;
    dao::Recordset rule = RuleRow(details.scenarioId, details.tableRuleId, details.ruleId);
    rule.Edit();
    for (const CodeField& field : kFields)
        rule.Set(field.name, details.*field.field);
    for (const UseField& field : kUseFields)
        rule.Set(field.name, details.use == field.use);
    rule.Set("Start Range", details.startRange.empty() ? "0" : details.startRange);
    rule.Set("End Range", details.startRange.empty() || details.endRange.empty() ? "0" : details.endRange);
    rule.Update();
}

bool fUpdateColumnRule(const ColumnRuleDetails& details) {
    if (fColumnHasDependency(details.scenarioId, details.tableRuleId, details.tableId, details.columnId))
        return platform::Refuse(kResolvedByParent);
    if (details.startRange.empty() && Number(details.endRange) != 0)
        return platform::Refuse("Please enter a start number greater than zero");
    if (FaultyField(details) != ColumnRuleField::None)
        return false;
    StoreColumnRule(details);
    return true;
}

}  // namespace vellumark
