#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <zip.h>

namespace vellumark::platform {

struct DiscardArchive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};

// A zip file opened for reading. Names of entries compare without regard to case.
class ZipArchive {
 public:
    // Throws kUnrecognizedFormat for a file that is damaged, kPermissionDenied for one that can't be read.
    explicit ZipArchive(const std::string& path);

    bool Has(const std::string& entry) const;
    // Hands on the content in pieces until `use` says false. Throws kUnrecognizedFormat when the entry is
    // missing or damaged, kPermissionDenied when it is encrypted.
    void Read(const std::string& entry, const std::function<bool(std::string_view)>& use) const;

 private:
    std::unique_ptr<zip_t, DiscardArchive> archive_;
};

}  // namespace vellumark::platform
