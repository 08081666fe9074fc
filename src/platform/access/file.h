#pragma once

#include <array>
#include <cstdint>
#include <mdbtools.h>
#include <memory>
#include <string>
#include <string_view>

#include "platform/access/bytes.h"

namespace vellumark::access {

using Page = std::array<unsigned char, MDB_PGSIZE>;

// Where something stands: a page of the file and a row on it, packed as the file packs them.
struct RowPlace {
    std::uint32_t packed = 0;

    std::uint32_t PageNumber() const { return packed >> 8; }
    std::size_t Row() const { return packed & 0xFF; }
};

// A row on a data page, with what its entry in the page's list says.
struct PageRow {
    Bytes content;
    bool deleted = false;
    bool moved = false;  // the content is the place where the row is now
};

// A file of Microsoft Access 97 or later, open for reading. libmdb opens it, decodes its pages and old text
// and knows the layout of each version. Its functions for catalogs, indexes and rows stay unused: on a
// damaged file they crash or end the program, and they confuse indexes with relationships.
class File {
 public:
    // Tells such a file by its first bytes.
    static bool Recognizes(const std::string& path);

    // Throws kUnrecognizedFormat for a file that is damaged, encrypted or of an unknown version, and
    // kNotAValidPassword.
    File(const std::string& path, std::string_view password);

    const MdbFormatConstants& Layout() const { return *handle_->fmt; }
    std::string_view VersionName() const;
    bool IsJet3() const { return handle_->f->jet_version == MDB_VER_JET3; }
    std::uint32_t PageCount() const { return pageCount_; }

    // Reads a page into `page`, where the result points to. Throws as ThrowDamaged does.
    Bytes Read(std::uint32_t number, Page& page);
    std::size_t RowCount(Bytes page) const { return page.Short(Layout().row_count_offset); }
    PageRow RowOn(Bytes page, std::size_t row) const;
    PageRow Read(RowPlace place, Page& page);

    // Appends stored text as UTF-8.
    void AppendText(std::string& out, Bytes text);
    std::string Text(Bytes text);
    // Appends a memo or an object, of which the row holds only a part or the place.
    void AppendLongValue(std::string& out, Bytes field);

 private:
    struct CloseHandle {
        void operator()(MdbHandle* handle) const { mdb_close(handle); }
    };

    void CheckSize(std::uint64_t size);
    void CheckPassword(std::string_view password);
    void CheckCatalog();

    std::unique_ptr<MdbHandle, CloseHandle> handle_;
    std::uint32_t pageCount_ = 0;
};

}  // namespace vellumark::access
