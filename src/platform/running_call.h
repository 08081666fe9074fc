#pragma once

#include <functional>

namespace vellumark::platform {

// A call to a database that may take long, for as long as it stands: another thread can end it, and it fails
// then with the database's own error.
class RunningCall {
 public:
    // `end` is called from another thread, any number of times, but never behind the destructor.
    explicit RunningCall(std::function<void()> end);
    ~RunningCall();
    RunningCall(const RunningCall&) = delete;
    RunningCall& operator=(const RunningCall&) = delete;

    // Ends all that stand.
    static void EndAll();

 private:
    std::function<void()> end_;
};

}  // namespace vellumark::platform
