#pragma once

#include <string>
#include <vector>

#include "scenario/modValueSources.h"

namespace vellumark {

// The first values, at most `count`, that a run would give the column from a source as it stands on a screen,
// whether stored or not. Fewer, behind a message, when the source can't give more.
std::vector<std::string> PreviewValues(const ValueSourceDetails& details, const ColumnRuleDetails& rule,
                                       int count);

}  // namespace vellumark
