#pragma once

#include "bench_session.h"

namespace vellumark::bench {

void RegisterSchemas(const Session& session);

}  // namespace vellumark::bench
