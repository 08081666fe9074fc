#pragma once

#include <string>

// Carries the tables and columns of the open Database schema onto another one and keeps that one's Scenarios
// in step.
namespace vellumark {

// Merge leaves alone what only the target has; Version Control deletes it.
enum class VersionControlMode { VersionControl, Merge };

struct VersionControl {
    int TargetDBSId = 0;
    VersionControlMode mode = VersionControlMode::VersionControl;
    std::string logFile;
};

// True when that schema can be the target. It can't be the open one.
bool fTargetOK(int TargetDBSId);

// Writes the log over an older file of its name. False behind a message: the target is as it was, and the log
// ends with the reason.
bool fApplyVersionControl(const VersionControl& run);

}  // namespace vellumark
