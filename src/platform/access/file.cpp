#include "platform/access/file.h"

#include <filesystem>
#include <fstream>

#include "platform/access/unicode.h"
#include "platform/error.h"

namespace vellumark::access {

namespace {

using platform::Error;

constexpr std::string_view kMark("\0\1\0\0", 4);
constexpr std::size_t kVersionAt = 0x14;
constexpr int kNewestVersion = MDB_VER_ACCDB_2019;
constexpr std::uint32_t kCatalogPage = 2;

// On the first page, which libmdb has unmasked.
constexpr std::size_t kPasswordAt = 0x42;
constexpr std::size_t kJet3PasswordSize = 20;
constexpr std::size_t kPasswordSize = 40;
constexpr std::size_t kCreationDateAt = 0x72;

// Flags of a row's entry in the list of its page, and what is left of the entry.
constexpr unsigned kDeleted = 0x8000;
constexpr unsigned kMoved = 0x4000;
constexpr unsigned kOffset = 0x1FFF;

std::string FirstBytes(const std::string& path) {
    std::string bytes(kVersionAt + 1, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

// The stored password of Access 2000 and later lies under a second mask, made of the file's creation date.
std::string StoredPassword(Bytes page, bool isJet3) {
    std::string stored(page.Part(kPasswordAt, isJet3 ? kJet3PasswordSize : kPasswordSize).Text());
    if (!isJet3) {
        const double created = page.Get<double>(kCreationDateAt);
        const bool isDate = created >= INT32_MIN && created <= INT32_MAX;
        const auto mask = std::bit_cast<std::array<char, 4>>(isDate ? static_cast<std::int32_t>(created) : 0);
        for (std::size_t i = 0; i < stored.size(); ++i)
            stored[i] = static_cast<char>(stored[i] ^ mask[i % mask.size()]);
    }
    std::string password;
    if (isJet3)
        password = stored;
    else
        AppendUtf16(password, Bytes(stored));
    return password.substr(0, password.find('\0'));
}

}  // namespace

bool File::Recognizes(const std::string& path) {
    const std::string bytes = FirstBytes(path);
    const std::string_view name = std::string_view(bytes).substr(0, kVersionAt - 1);
    return name.starts_with(kMark) &&
           (name.ends_with("Standard Jet DB") || name.ends_with("Standard ACE DB"));
}

File::File(const std::string& path, std::string_view password) {
    const std::string bytes = FirstBytes(path);
    if (bytes.size() <= kVersionAt)
        ThrowDamaged("its first page is cut off");
    if (static_cast<unsigned char>(bytes[kVersionAt]) > kNewestVersion)
        throw Error(platform::kUnrecognizedFormat,
                    "'" + path + "' was made by a version of Microsoft Access that Vellumark can't read.");
    std::error_code isNoFile;
    const std::uint64_t size = std::filesystem::file_size(path, isNoFile);
    if (isNoFile || size < MDB_PGSIZE)
        ThrowDamaged("its first page is cut off");
    handle_.reset(mdb_open(path.c_str(), MDB_NOFLAGS));
    if (!handle_)
        throw Error(platform::kCannotOpenFile, "Cannot open file '" + path + "'.");
    const bool hasKey = handle_->f->db_key != 0;
    if (hasKey && handle_->f->jet_version >= MDB_VER_ACCDB_2007)
        throw Error(platform::kUnrecognizedFormat,
                    "'" + path +
                        "' is encrypted. Vellumark can't read encrypted Microsoft Access files; please "
                        "decrypt a copy of it in Access.");
    CheckPassword(password);
    CheckSize(size);
    CheckCatalog();
}

std::string_view File::VersionName() const {
    if (IsJet3())
        return "Microsoft Access 97";
    return handle_->f->jet_version == MDB_VER_JET4 ? "Microsoft Access 2000"
                                                   : "Microsoft Access 2007 or later";
}

void File::CheckPassword(std::string_view password) {
    const std::string stored = StoredPassword({handle_->pg_buf, MDB_PGSIZE}, IsJet3());
    if (!stored.empty() && stored != password)
        throw Error(platform::kNotAValidPassword, "Not a valid password.");
}

void File::CheckSize(std::uint64_t size) {
    const auto pageSize = static_cast<std::uint64_t>(Layout().pg_size);
    if (size % pageSize != 0)
        ThrowDamaged("its end is cut off");
    pageCount_ = static_cast<std::uint32_t>(size / pageSize);
}

void File::CheckCatalog() {
    Page page;
    if (Read(kCatalogPage, page).Byte(0) != MDB_PAGE_TABLE)
        ThrowDamaged("its catalog is not where it should be");
}

Bytes File::Read(std::uint32_t number, Page& page) {
    const auto size = static_cast<std::size_t>(Layout().pg_size);
    if (number >= pageCount_)
        ThrowDamaged("page " + std::to_string(number) + " is missing");
    if (mdb_read_pg(handle_.get(), number) != Layout().pg_size)
        ThrowDamaged("page " + std::to_string(number) + " can't be read");
    std::memcpy(page.data(), handle_->pg_buf, size);
    return {page.data(), size};
}

PageRow File::RowOn(Bytes page, std::size_t row) const {
    if (row >= RowCount(page))
        ThrowDamaged("a row is missing on its page");
    const std::size_t list = Layout().row_count_offset + 2U;
    const unsigned entry = page.Short(list + row * 2);
    const std::size_t start = entry & kOffset;
    // Rows are laid down from the end of the page.
    const std::size_t end = row == 0 ? page.Size() : page.Short(list + row * 2 - 2) & kOffset;
    if (start > end)
        ThrowDamaged("a row overlaps another one");
    return {page.Part(start, end - start), (entry & kDeleted) != 0, (entry & kMoved) != 0};
}

PageRow File::Read(RowPlace place, Page& page) {
    const Bytes bytes = Read(place.PageNumber(), page);
    if (bytes.Byte(0) != MDB_PAGE_DATA)
        ThrowDamaged("page " + std::to_string(place.PageNumber()) + " holds no rows");
    return RowOn(bytes, place.Row());
}

void File::AppendText(std::string& out, Bytes text) {
    if (!IsJet3())
        return AppendUtf16(out, text);
    // Room for the longest form of each character and for the zero behind them.
    const std::size_t before = out.size();
    out.resize(before + text.Size() * 4 + 8);
    const int size = mdb_unicode2ascii(handle_.get(), text.Text().data(), text.Size(), out.data() + before,
                                       out.size() - before);
    out.resize(before + static_cast<std::size_t>(size));
}

std::string File::Text(Bytes text) {
    std::string out;
    AppendText(out, text);
    return out;
}

void File::AppendLongValue(std::string& out, Bytes field) {
    constexpr std::uint32_t kInRow = 0x80000000U, kOneRow = 0x40000000U, kLength = 0x3FFFFFFFU;
    constexpr std::size_t kPlaceAt = 4, kContentAt = 12, kNextSize = 4;
    const std::uint32_t head = field.Long(0);
    const std::size_t length = head & kLength;
    if (length > pageCount_ * std::uint64_t{MDB_PGSIZE})
        ThrowDamaged("a memo or an object is larger than the file");
    if ((head & kInRow) != 0) {
        out += field.Part(kContentAt, length).Text();
        return;
    }
    Page page;
    RowPlace place{field.Long(kPlaceAt)};
    if ((head & kOneRow) != 0) {
        out += Read(place, page).content.Part(0, length).Text();
        return;
    }
    const std::size_t end = out.size() + length;
    while (out.size() < end) {
        const Bytes content = Read(place, page).content;
        const std::size_t size = std::min(content.From(kNextSize).Size(), end - out.size());
        if (size == 0)
            ThrowDamaged("a memo or an object is cut off");
        out += content.Part(kNextSize, size).Text();
        place.packed = content.Long(0);
    }
}

}  // namespace vellumark::access
