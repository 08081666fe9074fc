#include "platform/spreadsheet/xls_process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include "platform/error.h"
#include "platform/spreadsheet/xls_file.h"

namespace vellumark::platform {

namespace {

constexpr std::size_t kBlock = 64 * 1024;
constexpr std::uint32_t kLongestText = 1U << 24;
// Far more than the largest file takes; a damaged one may go in circles.
constexpr rlim_t kMostSeconds = 60;

enum class Kind : std::int32_t { SheetName, Cell, End, Error };

// What stands before each text. An error's number is in `column`.
struct Head {
    Kind kind = Kind::End;
    std::int32_t row = 0;
    std::int32_t column = 0;
    std::uint32_t size = 0;
};

struct Request {
    std::size_t sheet;
    CellRange range;
};

[[noreturn]] void ThrowDamaged() {
    throw Error(kUnrecognizedFormat, "The file is damaged or cut short.");
}

[[noreturn]] void ThrowSystemError() {
    throw Error(kDeviceIOError, "The file can't be read: " + std::generic_category().message(errno));
}

// How many bytes came; 0 when the other end is closed.
std::size_t ReceiveSome(int socket, void* bytes, std::size_t size) {
    ssize_t got;
    do {
        got = recv(socket, bytes, size, 0);
    } while (got < 0 && errno == EINTR);
    return got < 0 ? 0 : static_cast<std::size_t>(got);
}

bool fSend(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(sent < 0 ? 0 : static_cast<std::size_t>(sent));
    }
    return true;
}

template <typename Plain>
std::string_view BytesOf(const Plain& plain) {
    return {reinterpret_cast<const char*>(&plain), sizeof plain};
}

// What the reading process sends, in large blocks.
class Outbox {
 public:
    explicit Outbox(int socket) : socket_(socket) {}

    // False when nobody listens any more.
    bool Send(Kind kind, int row, int column, std::string_view text) {
        const Head head{kind, row, column, static_cast<std::uint32_t>(text.size())};
        waiting_.append(BytesOf(head)).append(text);
        return waiting_.size() < kBlock || Flush();
    }
    bool Finish() { return Send(Kind::End, 0, 0, "") && Flush(); }
    bool Flush() {
        const bool sent = fSend(socket_, waiting_);
        waiting_.clear();
        return sent;
    }

 private:
    int socket_;
    std::string waiting_;
};

void ReadFile(const std::string& path, int socket, Outbox& out) {
    const XlsFile file(path);
    for (const std::string& name : file.SheetNames())
        out.Send(Kind::SheetName, 0, 0, name);
    Request request;
    if (!out.Finish() || ReceiveSome(socket, &request, sizeof request) != sizeof request)
        return;
    file.ReadRange(request.sheet, request.range, [&](int row, int column, std::string_view text) {
        return out.Send(Kind::Cell, row, column, text);
    });
    out.Finish();
}

// A crash of this process is nobody's news: no report, no core.
void ExpectTheWorst() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
        std::signal(fault, SIG_DFL);
    const rlimit none = {0, 0}, time = {kMostSeconds, kMostSeconds};
    setrlimit(RLIMIT_CORE, &none);
    setrlimit(RLIMIT_CPU, &time);
    dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
}

[[noreturn]] void BecomeReader(const std::string& path, int socket) {
    ExpectTheWorst();
    try {
        Outbox out(socket);
        try {
            ReadFile(path, socket, out);
        } catch (const Error& error) {
            out.Send(Kind::Error, 0, error.Number(), error.Description());
            out.Flush();
        }
    } catch (...) {
        _exit(1);
    }
    _exit(0);
}

}  // namespace

struct XlsProcess::Message : Head {
    std::string_view text;
};

XlsProcess::XlsProcess(const std::string& path) {
    std::array<int, 2> ends = {};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        ThrowSystemError();
    socket_ = ends[0];
    process_ = fork();
    if (process_ == 0) {
        close(ends[0]);
        BecomeReader(path, ends[1]);
    }
    close(ends[1]);
    if (process_ < 0) {
        close(socket_);
        ThrowSystemError();
    }
}

XlsProcess::~XlsProcess() {
    close(socket_);
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
}

std::vector<std::string> XlsProcess::ReceiveSheetNames() {
    std::vector<std::string> names;
    for (Message message; Receive(message);)
        names.emplace_back(message.text);
    return names;
}

void XlsProcess::ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use) {
    if (!fSend(socket_, BytesOf(Request{sheet, range})))
        ThrowDamaged();
    for (Message message; Receive(message);)
        if (!use(message.row, message.column, message.text))
            return;
}

bool XlsProcess::Receive(Message& message) {
    Head& head = message;
    std::memcpy(&head, Take(sizeof head).data(), sizeof head);
    if (head.size > kLongestText)
        ThrowDamaged();
    message.text = Take(head.size);
    if (head.kind == Kind::Error)
        throw Error(head.column, std::string(message.text));
    return head.kind != Kind::End;
}

std::string_view XlsProcess::Take(std::size_t size) {
    if (received_.size() - at_ < size) {
        received_.erase(0, at_);
        at_ = 0;
    }
    while (received_.size() < at_ + size) {
        const std::size_t had = received_.size();
        received_.resize(had + kBlock);
        const std::size_t got = ReceiveSome(socket_, received_.data() + had, kBlock);
        received_.resize(had + got);
        if (got == 0)  // the process has crashed
            ThrowDamaged();
    }
    at_ += size;
    return std::string_view(received_).substr(at_ - size, size);
}

}  // namespace vellumark::platform
