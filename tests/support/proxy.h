#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

namespace vellumark::test {

// A line on loopback from one client to a server's port. When `word` comes up in what the client says, the
// line first calls `act`; where that is nothing, or it returns false, both ends are cut off.
class Proxy {
 public:
    using Action = std::function<bool()>;

    Proxy(int serverPort, std::string word, Action act = {});
    ~Proxy();
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;

    std::string Port() const;
    // Whether the word has come up.
    bool HasActed() const { return acted_; }

 private:
    void Serve();
    bool Forward(int from, int to, bool isClient);
    bool Passes(std::string_view bytes);

    int serverPort_;
    std::string word_;
    Action act_;
    int listener_;
    std::string heard_;
    std::atomic<bool> acted_ = false;
    std::thread thread_;
};

}  // namespace vellumark::test
