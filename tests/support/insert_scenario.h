#pragma once

#include <string>
#include <utility>
#include <vector>

#include "engine/modGenerateData.h"
#include "session.h"

namespace vellumark::test {

using Fields = std::vector<std::pair<std::string, dao::Parameter>>;

// A column and the fields of its Column rule that differ from a plain generated column.
struct RuleColumn {
    std::string name;
    std::string type;
    int length = 0;
    int precision = 0;
    int scale = 0;
    Fields rule = {};
};

// Records what a run tells of its progress.
class ProgressRecorder : public RunProgress {
 public:
    void Caption(const std::string& text) override { captions.push_back(text); }
    void Start(std::int64_t total, int tables) override {
        started = std::to_string(total) + " rows, " + std::to_string(tables) + " tables";
    }
    void Rows(std::int64_t count) override { rows = count; }
    void Alive() override { ++signs; }
    void Finish() override { ++finished; }

    std::vector<std::string> captions;
    std::string started;
    std::int64_t rows = 0;
    int signs = 0;  // of life
    int finished = 0;
};

// An open schema "Shop" with an Insert Scenario "Rows" that a test fills with rules.
class InsertScenarioTest : public SessionTest {
 protected:
    void SetUp() override;
    void TearDown() override;

    // A new table SHOP.`name` and a Table rule for it, one row unless `rule` says otherwise; returns the Id
    // of both.
    int AddRule(const std::string& name, const std::vector<RuleColumn>& columns, const Fields& rule = {});
    // Another rule of a table that is there.
    int AddRuleOf(int tableId, const std::vector<RuleColumn>& columns, const Fields& rule = {});
    void SetOption(const std::string& name, const dao::Parameter& value);

    // Runs the Scenario into a file and returns what stands behind the two comment lines; a run that returns
    // false fails the test.
    std::string Generate(TargetFormat format);
    // The same for a run that must return false: the messages and choices it showed.
    std::string FailToGenerate(TargetFormat format);
    std::string WithoutComments(const std::string& text, TargetFormat format);

    std::string outputPath;
    ProgressRecorder progress;
};

// Each line end as a carriage return and a line feed.
std::string Crlf(const std::string& text);

}  // namespace vellumark::test
