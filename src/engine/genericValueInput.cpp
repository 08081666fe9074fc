#include <algorithm>

#include "engine/columnInput.h"
#include "engine/valueInput.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

// The values of a Category.
class CategoryInput : public ColumnInput {
 public:
    explicit CategoryInput(const ValueSource& source) : ColumnInput(source), categoryId_(source.categoryId) {}

 private:
    bool fLoad(platform::TextList& values, int count) override {
        dao::Statement rows = ValuesDatabase.Prepare(
            "select [Value] from [Value] where [FK CAT Id] = ? order by [Sort Order] asc limit ?");
        rows.BindAll({categoryId_, count});
        while (rows.Step())
            values.Append(rows.ColumnText(0));
        return true;
    }

    int categoryId_;
};

}  // namespace

std::unique_ptr<ValueInput> GenericValueInput(const ValueSource& source) {
    return std::make_unique<CategoryInput>(source);
}

}  // namespace vellumark
