#pragma once

#include <string>
#include <utility>
#include <vector>

#include "engine/modRunProgress.h"
#include "platform/dao/value.h"
#include "platform/dialogs.h"

namespace vellumark::bench {

// Messages on standard error: nothing that is measured should have one.
class StderrDialogs : public platform::Dialogs {
 public:
    void Message(platform::Icon icon, const std::string& text) override;
    bool AskYesNo(platform::Icon icon, const std::string& text) override;
    std::optional<std::string> Ask(const platform::Prompt& prompt) override;
    int Choose(const platform::Choice& choice) override;
    void Status(const std::string&) override {}
};

// A session on fresh stores in a temporary folder of its own, with an Insert Scenario to fill.
class Session {
 public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    std::string Path(const std::string& name) const { return folder_ + "/" + name; }

 private:
    StderrDialogs dialogs_;
    std::string folder_;
};

using Fields = std::vector<std::pair<std::string, dao::Parameter>>;

struct BenchColumn {
    std::string name;
    std::string type;
    int length = 0;
    int precision = 0;
    Fields rule = {};
};

// A table and its Table rule with the range 1 to `rows`, under one Id.
void AddRule(int id, const std::string& name, const std::vector<BenchColumn>& columns, int rows);
void SetRows(int rows);

class NoProgress : public RunProgress {
 public:
    void Caption(const std::string&) override {}
    void Start(std::int64_t, int) override {}
    void Rows(std::int64_t) override {}
    void Finish() override {}
};

}  // namespace vellumark::bench
