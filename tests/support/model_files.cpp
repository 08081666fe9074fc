#include "model_files.h"

#include "platform/text.h"

namespace vellumark::test {

void ModelFiles::WriteTo(const TempFolder& folder, const std::string& name) const {
    const auto write = [&](const char* file, const std::string& lines) {
        folder.Write(name + "/" + file, platform::Replace("skipped\n\nSHOP MODEL\n\n" + lines, "\n", "\r\n"));
    };
    write("table.txt", tables);
    write("column.txt", columns);
    write("permval.txt", values);
}

}  // namespace vellumark::test
