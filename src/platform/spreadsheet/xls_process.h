#pragma once

#include <cstdint>
#include <sys/types.h>

#include "platform/spreadsheet/workbook.h"

namespace vellumark::platform {

// An .xls file that is open in a process of its own: a damaged file may crash the library that reads it, and
// then no more than that process. Failures throw as those of Workbook do.
class XlsProcess {
 public:
    explicit XlsProcess(const std::string& path);
    // Ends the process, whatever it does.
    ~XlsProcess();
    XlsProcess(const XlsProcess&) = delete;
    XlsProcess& operator=(const XlsProcess&) = delete;

    // Once, and first.
    std::vector<std::string> ReceiveSheetNames();
    // Once, behind that.
    void ReadRange(std::size_t sheet, const CellRange& range, const CellHandler& use);

 private:
    struct Message;

    // False at the end of what was asked for. The text is valid until the next call.
    bool Receive(Message& message);
    // The next bytes that were sent.
    std::string_view Take(std::size_t size);

    int socket_ = -1;
    pid_t process_ = -1;
    std::string received_;
    std::size_t at_ = 0;  // of the next byte
};

}  // namespace vellumark::platform
