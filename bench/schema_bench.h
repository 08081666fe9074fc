#pragma once

#include "bench_session.h"

namespace vellumark::bench {

void RegisterSchemaReads(const Session& session);

}  // namespace vellumark::bench
