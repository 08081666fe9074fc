#include "scenario/modGenericValues.h"

#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modConsistencyCheck.h"
#include "repository/modValuesStore.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

constexpr std::size_t kLongestConversionText = 200;

int IdOfName(const char* table, std::string_view name) {
    ValuesScope values;
    return dao::ToLong(
        ValuesDatabase.Lookup("select [Id] from [" + std::string(table) + "] where [Name] = ?", {name}));
}

bool fNumberOK(std::string_view value, DataType type, const char* message) {
    return (!value.empty() && fValidNumber(value, type, DecimalPointCharacter)) || platform::Refuse(message);
}

// A number with digit grouping symbols is numeric, but no value.
bool fRealNumberOK(std::string_view value) {
    std::string ungrouped(value);
    std::erase(ungrouped, ',');
    if (ungrouped.empty() || !fValidNumber(ungrouped, DataType::Double, DecimalPointCharacter))
        return platform::Refuse("Value must be numeric.");
    return fNumberOK(value, DataType::Double, "Value must be a real number with no digit grouping symbols.");
}

bool fValuesOK(char dataType, const std::vector<std::string>& values) {
    if (values.empty())
        return platform::Refuse("There are no values to import.");
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!fVLEValidateError(values[i], dataType))
            return platform::Refuse("Line " + std::to_string(i + 1) +
                                    " was not accepted; nothing was imported.");
    return true;
}

template <typename Add>
void InValuesDatabase(const Add& add) {
    ValuesScope scope;
    dao::Transaction transaction(ValuesDatabase);
    add();
    transaction.Commit();
}

}  // namespace

std::vector<CategorySummary> ListCategories() {
    ValuesScope scope;
    dao::Recordset rows = ValuesDatabase.OpenRecordset(
        "select c.*, (select count(*) from [Value] v where v.[FK CAT Id] = c.[Id]) as Quantity from "
        "[Category] c "
        "order by c.[Name] asc");
    std::vector<CategorySummary> categories;
    const auto code = [&rows](const char* field, char fallback) {
        const std::string text = rows.Text(field);
        return text.empty() ? fallback : text.front();
    };
    for (; !rows.IsEOF(); rows.MoveNext())
        categories.push_back({rows.Long("Id"), rows.Text("Name"), code("Data Type", 'C'), code("Type", 'T'),
                              rows.Long("Quantity")});
    return categories;
}

int CategoryId(std::string_view name) {
    return IdOfName("Category", name);
}

int ConversionCodeId(std::string_view name) {
    return IdOfName("Conversion Code", name);
}

bool fVLEValidateError(std::string_view value, char dataType) {
    switch (dataType) {
        case 'I':
            return fNumberOK(value, DataType::BigInteger,
                             "Value must be an integer with no decimal symbols or digit grouping symbols.");
        case 'R':
            return fRealNumberOK(value);
        case 'D':
            return fValidDate(value, true);
        case 'T':
            return fValidTime(value, true);
        case 'S':
            return fValidTimestamp(value, true);
        default:
            return true;
    }
}

bool fImportCategory(const std::string& name, char dataType, const std::vector<std::string>& values) {
    try {
        if (CategoryId(name) > 0)
            return platform::Refuse("There is a Category '" + name + "' already.");
        if (!fValuesOK(dataType, values))
            return false;
        InValuesDatabase([&] {
            AddCategory(ValuesDatabase, name, dataType, {values.begin(), values.end()});
        });
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("importing the Category", error);
        return false;
    }
}

bool fImportConversionCode(const std::string& name,
                           const std::vector<std::pair<std::string, std::string>>& codes) {
    try {
        if (ConversionCodeId(name) > 0)
            return platform::Refuse("There is a Conversion Code '" + name + "' already.");
        if (codes.empty())
            return platform::Refuse("There are no codes to import.");
        for (const auto& [code, value] : codes)
            if (code.size() > kLongestConversionText || value.size() > kLongestConversionText)
                return platform::Refuse("A code and its value may not be longer than 200 characters: '" +
                                        code + "'");
        InValuesDatabase([&] { AddConversionCode(ValuesDatabase, name, {codes.begin(), codes.end()}); });
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("importing the Conversion Code", error);
        return false;
    }
}

}  // namespace vellumark
