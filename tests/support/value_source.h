#pragma once

#include "engine/modValueReaders.h"
#include "insert_scenario.h"

namespace vellumark::test {

// Value Sources for the columns of an Insert Scenario, and readers on them.
class ValueSourceTest : public InsertScenarioTest {
 protected:
    void SetUp() override;

    // The source of one column of a rule, which reads every row in order to the end of the data unless
    // `fields` say otherwise; it replaces an older one.
    void AddSource(const Fields& fields, int tableAndRule = 1, int column = 1);
    // Each with a new Id, which is returned.
    int AddCategory(const std::vector<std::string>& values);
    int AddConversion(const std::vector<std::pair<std::string, std::string>>& codes);
    int AddConnectionRow(const std::string& description, char protocol, const std::string& connectionString,
                         const std::string& table, const std::string& column);

    // The source's values for the rows 1 to `rows`, each with a blank before it; "!" where a row fails,
    // behind which none is read.
    std::string Read(int rows);
    std::string Read(const Fields& fields, int rows) {
        AddSource(fields);
        return Read(rows);
    }

    RunOptions options;
    RandomStream random;
    ReaderColumn served;
};

// What the readers say of a failure, in the order shown.
std::string ReadingFailure(const std::string& text);

}  // namespace vellumark::test
