#pragma once

#include "bench_session.h"

namespace vellumark::bench {

void RegisterWorkingRuns(const Session& session);

}  // namespace vellumark::bench
