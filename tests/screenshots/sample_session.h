#pragma once

#include <string>

#include "temp_folder.h"

namespace vellumark::test {

// A session on a copy of what `make demo` leaves in its folder: the schema "Shop" with its Insert Scenario
// "A busy week" of six Table rules, a Dependency and Value Sources.
class SampleSession {
 public:
    explicit SampleSession(const std::string& demoFolder);

    // Closes what is open and opens the schema with that Scenario selected.
    void Reopen() const;

 private:
    TempFolder folder_;
};

}  // namespace vellumark::test
