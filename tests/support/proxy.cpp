#include "proxy.h"

#include <array>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vellumark::test {

namespace {

sockaddr_in Loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int NewSocket() {
    return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

}  // namespace

Proxy::Proxy(int serverPort, std::string word, Action act)
    : serverPort_(serverPort), word_(std::move(word)), act_(std::move(act)), listener_(NewSocket()) {
    const sockaddr_in anyPort = Loopback(0);
    bind(listener_, reinterpret_cast<const sockaddr*>(&anyPort), sizeof anyPort);
    listen(listener_, 1);
    thread_ = std::thread([this] { Serve(); });
}

// The client must have closed its end, if it ever came.
Proxy::~Proxy() {
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
}

std::string Proxy::Port() const {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    return std::to_string(ntohs(address.sin_port));
}

void Proxy::Serve() {
    const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0)
        return;
    const int server = NewSocket();
    const sockaddr_in address = Loopback(serverPort_);
    connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    std::array<pollfd, 2> ends{{{client, POLLIN, 0}, {server, POLLIN, 0}}};
    bool open = true;
    while (open && poll(ends.data(), ends.size(), -1) > 0) {
        if (ends[0].revents != 0)
            open = Forward(client, server, true);
        if (open && ends[1].revents != 0)
            open = Forward(server, client, false);
    }
    close(client);
    close(server);
}

bool Proxy::Forward(int from, int to, bool isClient) {
    std::array<char, 65536> buffer;
    const ssize_t size = recv(from, buffer.data(), buffer.size(), 0);
    if (size <= 0 || (isClient && !Passes({buffer.data(), static_cast<std::size_t>(size)})))
        return false;
    return send(to, buffer.data(), static_cast<std::size_t>(size), MSG_NOSIGNAL) == size;
}

bool Proxy::Passes(std::string_view bytes) {
    if (acted_)
        return true;
    heard_.append(bytes);
    if (heard_.find(word_) == std::string::npos)
        return true;
    acted_ = true;
    return act_ && act_();
}

}  // namespace vellumark::test
