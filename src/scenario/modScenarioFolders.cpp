#include "scenario/modScenarioFolders.h"

#include <filesystem>
#include <string_view>
#include <vector>

#include "platform/error.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFolderEnd = ".tso";
// A folder under its draft name.
constexpr std::string_view kMade = ".being-made";
// A link, beside the new name, that tells the old one.
constexpr std::string_view kRenamed = ".being-renamed";
// A folder set aside.
constexpr std::string_view kRemoved = ".being-removed";

[[noreturn]] void Refuse(const std::string& folder) {
    throw platform::Error(platform::kPathAccessError, "Path/File access error: '" + folder + "'");
}

std::string Marked(const std::string& folder, std::string_view mark) {
    return std::string(folder).append(mark);
}

void RenameQuietly(const std::string& from, const std::string& to) {
    std::error_code ignored;
    if (fs::exists(from, ignored) && !fs::exists(to, ignored))
        fs::rename(from, to, ignored);
}

void RemoveQuietly(const std::string& folder) {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

// A folder that is there already is taken as it is.
void GiveName(const std::string& folder) {
    RenameQuietly(Marked(folder, kMade), folder);
    std::error_code ignored;
    fs::remove(Marked(folder, kMade), ignored);
}

// Case counts: after a change of case alone the folder must follow the row.
bool IsScenario(const std::string& folder) {
    const dao::Value rows = RepositoryDatabase.Lookup(
        "select count(*) from [Test Scenario] where [FK DBS Id] = ? and [Name] = ? collate binary and [Id] > "
        "0",
        {CurrentDBSId, fs::path(folder).stem().string()});
    return dao::ToLong(rows) > 0;
}

void FinishMade(const std::string& folder) {
    if (IsScenario(folder))
        return GiveName(folder);
    std::error_code ignored;
    fs::remove(Marked(folder, kMade), ignored);
}

void FinishRenamed(const std::string& folder) {
    const std::string mark = Marked(folder, kRenamed);
    std::error_code failure;
    const std::string old = JoinPath(CurrentDBSFolder, fs::read_symlink(mark, failure).filename().string());
    if (failure)
        return;
    if (IsScenario(folder))
        RenameQuietly(old, folder);
    else if (IsScenario(old))
        RenameQuietly(folder, old);
    fs::remove(mark, failure);
}

void FinishRemoved(const std::string& folder) {
    if (IsScenario(folder))
        RenameQuietly(Marked(folder, kRemoved), folder);
    else
        RemoveQuietly(Marked(folder, kRemoved));
}

struct CutOffChange {
    std::string_view mark;
    void (*finish)(const std::string& folder);
};

constexpr CutOffChange kChanges[] = {
    {kMade, FinishMade}, {kRenamed, FinishRenamed}, {kRemoved, FinishRemoved}};

// The marks of one kind in the schema's folder, without the ends that make them marks.
std::vector<std::string> FoldersMarked(std::string_view mark) {
    const std::string end = std::string(kFolderEnd).append(mark);
    std::vector<std::string> found;
    std::error_code failure;
    for (fs::directory_iterator entry(CurrentDBSFolder, failure), last; !failure && entry != last;
         entry.increment(failure)) {
        std::string path = entry->path().string();
        if (path.ends_with(end))
            found.push_back(path.substr(0, path.size() - mark.size()));
    }
    return found;
}

bool HasMarks() {
    for (const CutOffChange& change : kChanges)
        if (!FoldersMarked(change.mark).empty())
            return true;
    return false;
}

}  // namespace

MadeFolder::MadeFolder(std::string folder) : folder_(std::move(folder)) {
    std::error_code failure;
    if (fs::exists(folder_, failure) && !fs::is_directory(folder_, failure))
        Refuse(folder_);
    fs::create_directory(Marked(folder_, kMade), failure);
    if (failure)
        Refuse(folder_);
}

MadeFolder::~MadeFolder() {
    std::error_code ignored;
    fs::remove(Marked(folder_, kMade), ignored);
}

void MadeFolder::Keep() {
    GiveName(folder_);
}

RenamedFolder::RenamedFolder(std::string from, std::string to) : from_(std::move(from)), to_(std::move(to)) {
    std::error_code failure;
    // Where there are no links, only the help after a sudden death is lost.
    fs::create_directory_symlink(fs::path(from_).filename(), Marked(to_, kRenamed), failure);
    fs::rename(from_, to_, failure);
    if (!failure)
        return;
    fs::remove(Marked(to_, kRenamed), failure);
    Refuse(from_);
}

RenamedFolder::~RenamedFolder() {
    if (!kept_)
        RenameQuietly(to_, from_);
    std::error_code ignored;
    fs::remove(Marked(to_, kRenamed), ignored);
}

void RenamedFolder::Keep() {
    kept_ = true;
}

RemovedFolder::RemovedFolder(std::string folder) : folder_(std::move(folder)) {
    RemoveQuietly(Marked(folder_, kRemoved));
    RenameQuietly(folder_, Marked(folder_, kRemoved));
}

RemovedFolder::~RemovedFolder() {
    if (!removed_)
        RenameQuietly(Marked(folder_, kRemoved), folder_);
}

void RemovedFolder::Remove() {
    removed_ = true;
    RemoveQuietly(Marked(folder_, kRemoved));
}

void FinishFolderChanges() {
    if (!HasMarks())
        return;
    try {
        // Who is in the middle of a change holds the lock until it is committed.
        const dao::Transaction lock(RepositoryDatabase);
        for (const CutOffChange& change : kChanges)
            for (const std::string& folder : FoldersMarked(change.mark))
                change.finish(folder);
    } catch (const platform::Error&) {
        // The next open tries again.
    }
}

}  // namespace vellumark
