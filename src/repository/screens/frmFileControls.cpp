#include "repository/screens/frmFileControls.h"

#include <QDir>
#include <QStorageInfo>
#include <algorithm>
#include <filesystem>

#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/files.h"
#include "platform/screens/qtText.h"
#include "platform/text.h"
#include "repository/modSequentialFileServices.h"
#include "ui_frmFileControls.h"

namespace vellumark {

namespace {

constexpr int kPathRole = Qt::UserRole;
constexpr int kUnreadRole = Qt::UserRole + 1;
constexpr int kFileSystem = 1;  // in the list of drives

std::string PathOf(const QTreeWidgetItem& item) {
    return FromQt(item.data(0, kPathRole).toString());
}

std::string DriveAt(const QComboBox& drives, int index) {
    return FromQt(drives.itemData(index).toString());
}

std::string WithSeparator(std::string folder) {
    if (!folder.ends_with('/'))
        folder += '/';
    return folder;
}

// Where desktops mount what is plugged in; the system's own mounts are of no use here.
bool IsForPeople(const QString& mount) {
    return mount.startsWith("/media/") || mount.startsWith("/run/media/") || mount.startsWith("/mnt/");
}

// Empty for a path without any.
std::string ExistingFolder(const std::string& path) {
    std::filesystem::path folder = platform::PlatformPath(path);
    while (!folder.empty() && !platform::FolderExists(folder.string()))
        folder = folder == folder.parent_path() ? "" : folder.parent_path();
    return folder.string();
}

using FolderItem = std::unique_ptr<QTreeWidgetItem>;

// Its folders are read when it is opened; until then it offers to be opened.
FolderItem MakeItem(const std::string& path, const std::string& name) {
    FolderItem item = std::make_unique<QTreeWidgetItem>(QStringList(ToQt(name)));
    item->setData(0, kPathRole, ToQt(path));
    item->setData(0, kUnreadRole, true);
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

// The folder below the item that leads to that one.
QTreeWidgetItem* ChildTowards(const QTreeWidgetItem& item, const std::string& folder) {
    for (int i = 0; i < item.childCount(); ++i)
        if (WithSeparator(folder).starts_with(WithSeparator(PathOf(*item.child(i)))))
            return item.child(i);
    return nullptr;
}

}  // namespace

frmFileControls::frmFileControls(const std::string& title, const std::string& start, QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmFileControls>()) {
    ui_->setupUi(this);
    if (!title.empty())
        setWindowTitle(ToQt(title));
    connect(ui_->cboDrive, &QComboBox::currentIndexChanged, this, &frmFileControls::ChangeDrive);
    connect(ui_->lstFolders, &QTreeWidget::itemExpanded, this, &frmFileControls::LoadFolders);
    connect(ui_->lstFolders, &QTreeWidget::currentItemChanged, this, &frmFileControls::ShowFolder);
    connect(ui_->cboFileType, &QComboBox::currentIndexChanged, this, &frmFileControls::ShowFolder);
    connect(ui_->cmdSelect, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    FillDrives();
    const std::string folder = ExistingFolder(start);
    GoTo(folder.empty() ? ExistingFolder(FromQt(QDir::homePath())) : folder);
    ui_->lstFolders->setFocus();
}

frmFileControls::~frmFileControls() = default;

std::string frmFileControls::Folder() const {
    return WithSeparator(FromQt(ui_->txtFolder->text()));
}

void frmFileControls::FillDrives() {
    const QSignalBlocker quiet(ui_->cboDrive);
    ui_->cboDrive->addItem("Home", QDir::homePath());
    ui_->cboDrive->addItem("File system", "/");
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        if (volume.isReady() && IsForPeople(volume.rootPath()))
            ui_->cboDrive->addItem(volume.displayName(), volume.rootPath());
    ui_->cboDrive->setCurrentIndex(kFileSystem);
    ShowDrive(kFileSystem);
}

// The one that leads there on the shortest way.
int frmFileControls::DriveOf(const std::string& folder) const {
    std::size_t longest = 0;
    int found = kFileSystem;
    for (int i = 0; i < ui_->cboDrive->count(); ++i) {
        const std::string drive = WithSeparator(DriveAt(*ui_->cboDrive, i));
        if (WithSeparator(folder).starts_with(drive) && drive.size() > longest) {
            longest = drive.size();
            found = i;
        }
    }
    return found;
}

void frmFileControls::ChangeDrive() {
    try {
        ShowDrive(ui_->cboDrive->currentIndex());
    } catch (const platform::Error& error) {
        platform::ShowExclamation("Unexpected error changing drive: \n\n" + error.Line());
        const QSignalBlocker quiet(ui_->cboDrive);
        ui_->cboDrive->setCurrentIndex(drive_);
    }
}

void frmFileControls::ShowDrive(int drive) {
    const std::string path = DriveAt(*ui_->cboDrive, drive);
    platform::FoldersIn(path);  // fails before anything has changed
    ui_->lstFolders->clear();
    ui_->lstFolders->addTopLevelItem(MakeItem(path, path).release());
    QTreeWidgetItem* root = ui_->lstFolders->topLevelItem(0);
    root->setExpanded(true);
    ui_->lstFolders->setCurrentItem(root);
    drive_ = drive;
}

void frmFileControls::GoTo(const std::string& folder) {
    ui_->cboDrive->setCurrentIndex(DriveOf(folder));
    QTreeWidgetItem* item = ui_->lstFolders->topLevelItem(0);
    while (QTreeWidgetItem* child = ChildTowards(*item, folder)) {
        item = child;
        item->setExpanded(true);
    }
    ui_->lstFolders->setCurrentItem(item);
    ui_->lstFolders->scrollToItem(item);
}

void frmFileControls::LoadFolders(QTreeWidgetItem* item) {
    if (!item->data(0, kUnreadRole).toBool())
        return;
    item->setData(0, kUnreadRole, false);
    try {
        const std::string path = PathOf(*item);
        for (const std::string& name : platform::FoldersIn(path))
            item->addChild(MakeItem(JoinPath(path, name), name).release());
    } catch (const platform::Error&) {
        // A folder that can't be read is one without folders; the list of files tells why.
    }
    item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

void frmFileControls::ShowFolder() {
    ui_->lstFiles->clear();
    const QTreeWidgetItem* item = ui_->lstFolders->currentItem();
    if (item == nullptr)
        return;
    ui_->txtFolder->setText(ToQt(PathOf(*item)));
    try {
        std::vector<std::string> files =
            platform::FilesIn(PathOf(*item), FromQt(ui_->cboFileType->currentText()));
        std::sort(files.begin(), files.end(), platform::LessIgnoringCase);
        for (const std::string& file : files)
            ui_->lstFiles->addItem(ToQt(FileNameOnly(file)));
    } catch (const platform::Error& error) {
        ui_->lstFiles->addItem(ToQt(error.Description()));
        ui_->lstFiles->item(0)->setFlags(Qt::NoItemFlags);
    }
}

std::optional<std::string> AskFolder(QWidget* parent, const std::string& title, const std::string& start) {
    frmFileControls picker(title, start, parent);
    return picker.exec() == QDialog::Accepted ? std::optional(picker.Folder()) : std::nullopt;
}

}  // namespace vellumark
