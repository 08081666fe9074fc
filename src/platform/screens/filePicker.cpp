#include "platform/screens/filePicker.h"

#include <QFileDialog>
#include <QStringList>

#include "platform/screens/qtText.h"

namespace vellumark {

namespace {

// "txt (*.txt)|*.txt|All files (*.*)|*.*" as Qt wants it. "*.*" means every file, with a point in its name or
// not.
QString QtFilter(const std::string& filter) {
    const QStringList parts = ToQt(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString caption = parts[i].section('(', 0, 0).trimmed();
        const QString patterns = parts[i + 1] == "*.*" ? "*" : QString(parts[i + 1]).replace(';', ' ');
        filters.append(caption + " (" + patterns + ")");
    }
    return filters.join(";;");
}

std::optional<std::string> Chosen(const QString& path) {
    return path.isEmpty() ? std::nullopt : std::optional(FromQt(path));
}

FilePicker*& Current() {
    static FilePicker desktop;
    static FilePicker* current = &desktop;
    return current;
}

}  // namespace

std::optional<std::string> FilePicker::Open(QWidget* parent, const FilePickerRequest& request) {
    return Chosen(QFileDialog::getOpenFileName(parent, ToQt(request.title), ToQt(request.start),
                                               QtFilter(request.filter)));
}

std::optional<std::string> FilePicker::Save(QWidget* parent, const FilePickerRequest& request) {
    return Chosen(QFileDialog::getSaveFileName(parent, ToQt(request.title), ToQt(request.start),
                                               QtFilter(request.filter), nullptr,
                                               QFileDialog::DontConfirmOverwrite));
}

void UseFilePicker(FilePicker& picker) {
    Current() = &picker;
}

FilePicker& CurrentFilePicker() {
    return *Current();
}

}  // namespace vellumark
