#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/output_file.h"

namespace vellumark {

// The folder of reports and logs, from [Options]. Empty behind a message.
std::string ReportFolder();
std::string ReportPath(const std::string& folder, std::string_view fileName);

// The file, made anew, or nothing behind a message.
std::unique_ptr<platform::OutputFile> OpenReportFile(const std::string& path);

}  // namespace vellumark
