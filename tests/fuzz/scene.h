#pragma once

#include "platform/dialogs.h"
#include "repository/modVellumark.h"
#include "session.h"

namespace vellumark::fuzz {

// Counts what the user is told and takes the first answer to every question.
class CountingDialogs : public platform::Dialogs {
 public:
    void Message(platform::Icon, const std::string& text) override;
    bool AskYesNo(platform::Icon, const std::string&) override { return true; }
    std::optional<std::string> Ask(const platform::Prompt& prompt) override { return prompt.defaultAnswer; }
    int Choose(const platform::Choice&) override { return 1; }
    void Status(const std::string&) override {}

    int shown = 0;
    std::string last;
};

// Takes all boxes until the next scene or target does.
CountingDialogs& UseCountingDialogs();

// A session with an open schema that serves all runs of a target.
class Scene : public test::SessionTest {
 public:
    // Its first call makes it.
    static Scene& Get();

    // A file in the session's folder, written anew.
    std::string Write(std::string_view name, std::string_view content) const {
        return folder.Write(name, content);
    }
    std::string Path(std::string_view name) const { return folder.Path(name); }

 private:
    Scene();
    ~Scene() override;
    void TestBody() override {}
};

// The session's Repository as it was, whatever a run does to it.
class Untouched {
 public:
    Untouched() : transaction_(RepositoryDatabase) {}

    int Count(const std::string& table) const;

 private:
    RepositoryScope repository_;
    dao::Transaction transaction_;
};

}  // namespace vellumark::fuzz
