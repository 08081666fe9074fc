#include "platform/running_call.h"

#include <mutex>
#include <set>

namespace vellumark::platform {

namespace {

struct Calls {
    std::mutex mutex;
    std::set<const RunningCall*> standing;
};

Calls& AllCalls() {
    static Calls calls;
    return calls;
}

}  // namespace

RunningCall::RunningCall(std::function<void()> end) : end_(std::move(end)) {
    const std::lock_guard lock(AllCalls().mutex);
    AllCalls().standing.insert(this);
}

RunningCall::~RunningCall() {
    const std::lock_guard lock(AllCalls().mutex);
    AllCalls().standing.erase(this);
}

void RunningCall::EndAll() {
    const std::lock_guard lock(AllCalls().mutex);
    for (const RunningCall* call : AllCalls().standing)
        call->end_();
}

}  // namespace vellumark::platform
