#pragma once

#include <string>

#include "engine/modRunProgress.h"
#include "repository/modTargetFormats.h"

namespace vellumark {

// Where a run's output goes.
struct OutputChoice {
    bool toDatabase = false;  // the open Target Connection, else the file
    std::string textFile;
    TargetFormat format = TargetFormat::Delimited;
};

// Carries out the current Insert Scenario. False when something stopped the run, which has been shown.
bool TestDataGenerateAll(const OutputChoice& choice, RunProgress& progress);

}  // namespace vellumark
