#include "platform/row_store.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "temp_folder.h"

namespace vellumark::platform {
namespace {

TEST(RowStore, KeepsRowsOfEveryKind) {
    RowStore store({"a", "b"});
    const RowStore::Fields rows[] = {{"x", "y"},
                                     {"", std::nullopt},
                                     {std::nullopt, std::string("a\0\n", 3)},
                                     {std::string(3 << 20, 'l'), ""}};
    for (const RowStore::Fields& row : rows)
        store.Append(row);
    ASSERT_EQ(store.RowCount(), 4U);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_TRUE(store.Row(i) == rows[i]) << i;
    EXPECT_TRUE(store.Row(4).empty());
}

// Across many blocks, in any order, while more rows come; nothing of it is to be seen in the folder.
TEST(RowStore, ReadsByPlaceWhileItGrows) {
    const test::TempFolder folder;
    setenv("TMPDIR", folder.Path().c_str(), 1);
    {
        RowStore store({"n"});
        std::size_t wrong = 0;
        for (int i = 0; i < 300'000; ++i) {
            store.Append({std::to_string(i) + " padding padding"});
            const auto place = static_cast<std::size_t>(i) * 7919 % store.RowCount();
            wrong += store.Row(place)[0] != std::to_string(place) + " padding padding";
        }
        EXPECT_EQ(wrong, 0U);
        EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
        setenv("TMPDIR", folder.Path("missing").c_str(), 1);
        RowStore homeless({"n"});
        EXPECT_ANY_THROW(homeless.Append({std::string(2 << 20, 'x')}));
    }
    unsetenv("TMPDIR");
}

}  // namespace
}  // namespace vellumark::platform
