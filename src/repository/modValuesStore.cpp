#include "repository/modValuesStore.h"

#include <string>

#include "repository/modVellumark.h"

namespace vellumark {

int AddCategory(const dao::Database& values, std::string_view name, char dataType,
                const std::vector<std::string_view>& texts, char type) {
    const int id = NextId(values, "select max([Id]) from [Category]");
    dao::Recordset categories = values.OpenForAppend("Category");
    categories.AddNew();
    categories.Set("Id", id)
        .Set("Name", name)
        .Set("Data Type", std::string(1, dataType))
        .Set("Type", std::string(1, type));
    categories.Update();
    dao::Recordset rows = values.OpenForAppend("Value");
    int valueId = 0;
    for (const std::string_view text : texts) {
        ++valueId;
        rows.AddNew();
        rows.Set("Id", valueId)
            .Set("FK CAT Id", id)
            .Set("Value", text)
            .Set("Sort Order", valueId)
            .Set("FK Depends CAT Id", 0)
            .Set("FK Depends VLE Id", 0);
        rows.Update();
    }
    return id;
}

void AddConversionCode(const dao::Database& values, std::string_view name,
                       const std::vector<std::pair<std::string_view, std::string_view>>& codes) {
    const int id = NextId(values, "select max([Id]) from [Conversion Code]");
    dao::Recordset conversions = values.OpenForAppend("Conversion Code");
    conversions.AddNew();
    conversions.Set("Id", id).Set("Name", name);
    conversions.Update();
    dao::Recordset rows = values.OpenForAppend("Conversion Code Value");
    int codeId = 0;
    for (const auto& [code, value] : codes) {
        rows.AddNew();
        rows.Set("Id", ++codeId).Set("FK CNV Id", id).Set("Code", code).Set("Value", value);
        rows.Update();
    }
}

}  // namespace vellumark
