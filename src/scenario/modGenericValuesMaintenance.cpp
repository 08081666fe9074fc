#include "scenario/modGenericValuesMaintenance.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/dialogs.h"
#include "repository/modVellumark.h"
#include "repository/storeChange.h"
#include "scenario/modGenericValues.h"

namespace vellumark {

namespace {

struct DataTypeWord {
    char code;
    std::string_view name;
};

constexpr std::array kDataTypes = {
    DataTypeWord{'C', "Character"}, DataTypeWord{'D', "Date"}, DataTypeWord{'I', "Integer"},
    DataTypeWord{'R', "Real"},      DataTypeWord{'T', "Time"}, DataTypeWord{'S', "Timestamp"},
};

char FirstOf(const std::string& text, char fallback) {
    return text.empty() ? fallback : text.front();
}

bool fNameOK(const char* table, const char* what, const std::string& name, int id) {
    if (name.empty())
        return platform::Refuse("Please enter a name for the " + std::string(what));
    const ValuesScope values;
    const dao::Recordset others = ValuesDatabase.OpenRecordset(
        "select * from [" + std::string(table) + "] where [Name] = ? and [Id] <> ?", {name, id});
    return others.IsEOF() || platform::Refuse("There is a " + std::string(what) + " '" + name + "' already.");
}

bool IsUsed(const char* field, int id) {
    const RepositoryScope repository;
    return !RepositoryDatabase
                .OpenRecordset("select * from [Value Source] where [" + std::string(field) + "] = ?", {id})
                .IsEOF();
}

bool fMayDelete(const char* what, const char* shown, const char* field, int id, const std::string& name) {
    if (IsUsed(field, id))
        return platform::Refuse("Unable to delete the " + std::string(shown) + " " + name +
                                "\nIt has been selected for use in data generation.");
    return platform::AskYesNo("Do you want to delete the " + std::string(what) + " " + name + "?");
}

// The row of that table and key, or a new one with the next Id under its owner.
dao::Recordset RowFor(const std::string& table, const std::string& ownerField, int owner, int& id) {
    const std::string where = ownerField.empty() ? "1 = ?" : "[" + ownerField + "] = ?";
    const int key = ownerField.empty() ? 1 : owner;
    if (id > 0) {
        dao::Recordset row = ValuesDatabase.OpenRecordset(
            "select * from [" + table + "] where " + where + " and [Id] = ?", {key, id});
        row.Edit();
        return row;
    }
    id = NextId(ValuesDatabase, "select max([Id]) from [" + table + "] where " + where, {key});
    dao::Recordset row = ValuesDatabase.OpenForAppend(table);
    row.AddNew();
    row.Set("Id", id);
    if (!ownerField.empty())
        row.Set(ownerField, owner);
    return row;
}

// The Id reaches the caller's record only once the row is stored.
template <class Record, class Fill>
bool fSaveRow(const char* table, const char* ownerField, int owner, Record& record, const Fill& fill) {
    int id = record.id;
    const bool saved = fChangeValues("saving the row", [&] {
        dao::Recordset row = RowFor(table, ownerField, owner, id);
        fill(row);
        row.Update();
    });
    if (saved)
        record.id = id;
    return saved;
}

void ForgetDependants(std::string_view where, const dao::Parameters& parameters) {
    ValuesDatabase.Execute(
        "update [Value] set [FK Depends VLE Id] = 0, [FK Depends CAT Id] = 0 where " + std::string(where),
        parameters);
}

void SetNewValueFields(dao::Recordset& row, int categoryId) {
    row.Set("Sort Order", NextId(ValuesDatabase,
                                 "select max([Sort Order]) from [Value] where [FK CAT Id] = ?", {categoryId}))
        .Set("FK Depends CAT Id", 0)
        .Set("FK Depends VLE Id", 0);
}

}  // namespace

std::string CategoryDataTypeName(char code) {
    const auto found = std::ranges::find(kDataTypes, code, &DataTypeWord::code);
    return std::string(found == kDataTypes.end() ? kDataTypes.front().name : found->name);
}

char CategoryDataTypeCode(const std::string& name) {
    const auto found = std::ranges::find(kDataTypes, name, &DataTypeWord::name);
    return found == kDataTypes.end() ? 'C' : found->code;
}

std::string CategoryTypeName(char type) {
    return type == 'C' ? "COOL:Gen Permitted Value" : "Vellumark Generic Value";
}

std::vector<EditedCategory> ListEditedCategories(CategoryKind kind) {
    const std::string where = kind == CategoryKind::All            ? ""
                              : kind == CategoryKind::GenericValue ? " where [Type] = 'T'"
                                                                   : " where [Type] = 'C'";
    const ValuesScope values;
    dao::Recordset rows =
        ValuesDatabase.OpenRecordset("select * from [Category]" + where + " order by [Name] asc");
    std::vector<EditedCategory> categories;
    for (; !rows.IsEOF(); rows.MoveNext())
        categories.push_back({rows.Long("Id"), rows.Text("Name"), FirstOf(rows.Text("Data Type"), 'C'),
                              FirstOf(rows.Text("Type"), 'T')});
    return categories;
}

std::vector<EditedValue> ListEditedValues(int categoryId) {
    const ValuesScope values;
    dao::Recordset rows = ValuesDatabase.OpenRecordset(
        "select v.*, c.[Name] as [Parent Category], p.[Value] as [Parent Value] from [Value] v"
        " left join [Value] p on v.[FK Depends VLE Id] > 0 and p.[FK CAT Id] = v.[FK Depends CAT Id] and "
        "p.[Id] = "
        "v.[FK Depends VLE Id]"
        " left join [Category] c on c.[Id] = p.[FK CAT Id]"
        " where v.[FK CAT Id] = ? order by v.[Sort Order] asc",
        {categoryId});
    std::vector<EditedValue> list;
    for (; !rows.IsEOF(); rows.MoveNext())
        list.push_back({rows.Long("Id"), categoryId, rows.Text("Value"), rows.Long("FK Depends CAT Id"),
                        rows.Long("FK Depends VLE Id"), rows.Text("Parent Category"),
                        rows.Text("Parent Value")});
    return list;
}

std::vector<EditedConversionCode> ListEditedConversionCodes() {
    const ValuesScope values;
    dao::Recordset rows = ValuesDatabase.OpenRecordset("select * from [Conversion Code] order by [Name] asc");
    std::vector<EditedConversionCode> codes;
    for (; !rows.IsEOF(); rows.MoveNext())
        codes.push_back({rows.Long("Id"), rows.Text("Name")});
    return codes;
}

std::vector<EditedCodeValue> ListEditedCodeValues(int conversionId) {
    const ValuesScope values;
    dao::Recordset rows = ValuesDatabase.OpenRecordset(
        "select * from [Conversion Code Value] where [FK CNV Id] = ? order by [Code] asc", {conversionId});
    std::vector<EditedCodeValue> list;
    for (; !rows.IsEOF(); rows.MoveNext())
        list.push_back({rows.Long("Id"), conversionId, rows.Text("Code"), rows.Text("Value")});
    return list;
}

bool fSaveCategory(EditedCategory& category) {
    return fNameOK("Category", "Category", category.name, category.id) &&
           fSaveRow("Category", "", 0, category, [&](dao::Recordset& row) {
               row.Set("Name", category.name)
                   .Set("Data Type", std::string(1, category.dataType))
                   .Set("Type", std::string(1, category.type));
           });
}

bool fSaveValue(EditedValue& value, char dataType) {
    return fVLEValidateError(value.value, dataType) &&
           fSaveRow("Value", "FK CAT Id", value.categoryId, value, [&](dao::Recordset& row) {
               if (value.id == 0)
                   SetNewValueFields(row, value.categoryId);
               row.Set("Value", value.value);
           });
}

bool fSaveConversionCode(EditedConversionCode& code) {
    return fNameOK("Conversion Code", "Conversion Code", code.name, code.id) &&
           fSaveRow("Conversion Code", "", 0, code, [&](dao::Recordset& row) { row.Set("Name", code.name); });
}

bool fSaveCodeValue(EditedCodeValue& value) {
    return fSaveRow("Conversion Code Value", "FK CNV Id", value.conversionId, value,
                    [&](dao::Recordset& row) { row.Set("Code", value.code).Set("Value", value.value); });
}

bool fDeleteCategory(const EditedCategory& category) {
    return fMayDelete("category", "category", "FK CAT Id", category.id, category.name) &&
           fChangeValues("deleting the Category", [&] {
               ForgetDependants("[FK Depends CAT Id] = ?", {category.id});
               ValuesDatabase.Execute("delete from [Value] where [FK CAT Id] = ?", {category.id});
               ValuesDatabase.Execute("delete from [Category] where [Id] = ?", {category.id});
           });
}

bool fDeleteValue(const EditedValue& value) {
    return fChangeValues("deleting the value", [&] {
        ForgetDependants("[FK Depends CAT Id] = ? and [FK Depends VLE Id] = ?", {value.categoryId, value.id});
        ValuesDatabase.Execute("delete from [Value] where [FK CAT Id] = ? and [Id] = ?",
                               {value.categoryId, value.id});
    });
}

bool fDeleteConversionCode(const EditedConversionCode& code) {
    return fMayDelete("Conversion Code", "Conversion Code", "FK CNV Id", code.id, code.name) &&
           fChangeValues("deleting the Conversion Code", [&] {
               ValuesDatabase.Execute("delete from [Conversion Code Value] where [FK CNV Id] = ?", {code.id});
               ValuesDatabase.Execute("delete from [Conversion Code] where [Id] = ?", {code.id});
           });
}

bool fDeleteCodeValue(const EditedCodeValue& value) {
    return fChangeValues("deleting the code", [&] {
        ValuesDatabase.Execute("delete from [Conversion Code Value] where [FK CNV Id] = ? and [Id] = ?",
                               {value.conversionId, value.id});
    });
}

bool fSetValueDependency(const EditedValue& value, int parentCategoryId, int parentValueId) {
    return fChangeValues("setting the dependency", [&] {
        ValuesDatabase.Execute(
            "update [Value] set [FK Depends VLE Id] = ?, [FK Depends CAT Id] = ? where [Id] = ? and [FK CAT "
            "Id] = ?",
            {parentValueId, parentCategoryId, value.id, value.categoryId});
    });
}

bool SortValues(int categoryId) {
    const int answer = platform::CurrentDialogs().Choose(
        {"Sort Generic Values for this Category in Ascending or Descending order?", "&Ascending",
         "&Descending", "&Cancel"});
    if (answer != 1 && answer != 2)
        return false;
    return fChangeValues("sorting the values", [&] {
        dao::Recordset rows =
            ValuesDatabase.OpenRecordset("select * from [Value] where [FK CAT Id] = ? order by [Value] " +
                                             std::string(answer == 1 ? "asc" : "desc"),
                                         {categoryId});
        for (int order = 1; !rows.IsEOF(); rows.MoveNext()) {
            rows.Edit();
            rows.Set("Sort Order", order++);
            rows.Update();
        }
    });
}

}  // namespace vellumark
