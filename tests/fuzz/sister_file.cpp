#include "input.h"
#include "scene.h"
#include "schema/modSisterFiles.h"
#include "targets.h"

namespace vellumark::fuzz {

// The tool, a line end, and its file.
void FuzzSisterFile(std::string_view bytes) {
    const Scene& scene = Scene::Get();
    CountingDialogs& dialogs = UseCountingDialogs();
    Input input(bytes);
    const bool isCaseWeaver = input.Choice(2) == 0;
    input.Line();
    const std::string path = scene.Write("tool.txt", input.Rest());

    const auto head = isCaseWeaver ? ReadCaseWeaverHead(path) : ReadSheetWeaverHead(path);
    Expect(head.has_value() == (dialogs.shown == 0), "a head is read, or refused with a message");
    dialogs.shown = 0;
    const Untouched repository;
    const bool read = isCaseWeaver ? fReadCaseWeaverFile(path) : fReadSheetWeaverFile(path);
    Expect(read == (dialogs.shown == 0), "a file is read, or refused with a message");
    Expect(head.has_value() || !read, "a file without a good head is not read");
    Expect(read || repository.Count("Table") + repository.Count("Column") == 0, "all of a file or nothing");
    Expect(!read || (repository.Count("Table") > 0) == (repository.Count("Column") > 0),
           "tables have columns");
}

}  // namespace vellumark::fuzz
