#pragma once

#include <string>
#include <string_view>
#include <vector>

// Files and folders. Failures throw Error: kFileNotFound, kPathNotFound, kPathAccessError, kPermissionDenied,
// kDiskFull, kDeviceIOError or kBadFileName.
namespace vellumark::platform {

inline constexpr std::string_view kSeparators = "/\\";

// A path as people may type it, with backslashes as separators, in the platform's form.
std::string PlatformPath(std::string_view path);

// A file is anything but a folder. What can't be looked at does not exist.
bool FileExists(const std::string& path);
bool FolderExists(const std::string& path);
// Open in this or another process. False where the file system or the file's owner keeps that to itself.
bool IsFileOpen(const std::string& path);

// Replaces the destination.
void CopyFile(const std::string& source, const std::string& destination);
void DeleteFile(const std::string& path);
// A file or a folder; an existing destination is an error.
void Rename(const std::string& from, const std::string& to);

// An empty file that nobody but its owner may read or write. False, with nothing changed, when it is there
// already or can't be made.
bool MakePrivateFile(const std::string& path);
void CreateFolder(const std::string& path);
// With all that is in it; a missing folder is no error.
void RemoveFolder(const std::string& path);
void SetCurrentFolder(const std::string& path);

// Paths of the files, not folders, whose names match a pattern with * and ?, in no order. Case does not
// count, and "*.*" stands for every name.
std::vector<std::string> FilesIn(const std::string& folder, std::string_view pattern);

// Names of the folders in a folder by the alphabet, those that begin with a point behind the others.
std::vector<std::string> FoldersIn(const std::string& folder);

}  // namespace vellumark::platform
