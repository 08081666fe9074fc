#pragma once

#include <QWidget>
#include <optional>
#include <string>

namespace vellumark {

// What a file dialog offers: filters as "txt (*.txt)|*.txt|All files (*.*)|*.*", and the folder or file at
// which it starts.
struct FilePickerRequest {
    std::string title;
    std::string filter;
    std::string start;
};

// The desktop's file dialogs; tests answer in their place.
class FilePicker {
 public:
    virtual ~FilePicker() = default;

    // The path chosen, or nothing when the user cancelled. A file to save may be there already: who writes
    // it asks.
    virtual std::optional<std::string> Open(QWidget* parent, const FilePickerRequest& request);
    virtual std::optional<std::string> Save(QWidget* parent, const FilePickerRequest& request);
};

// Sets where file questions go; the caller keeps `picker` alive until another is set.
void UseFilePicker(FilePicker& picker);
FilePicker& CurrentFilePicker();

}  // namespace vellumark
