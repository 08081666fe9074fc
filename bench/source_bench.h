#pragma once

#include "bench_session.h"

namespace vellumark::bench {

void RegisterSourceRuns(const Session& session);

}  // namespace vellumark::bench
