#include "ScanItem.h"

#include <gtest/gtest.h>

TEST(IdentityTest, oneItemIsOnePathInAnySpellingAndOfAnyBytes)
{
    const auto idOf = [](const char *path) { return ScanItem{Url(path), {}, {}, 1, false}.id(); };
    EXPECT_EQ(idOf("/Users/a/Library/Caches/x"), idOf("/Users/a/Library/Caches/./x"));
    // Both are shown as U+FFFD.
    EXPECT_NE(idOf("/x/\xff"), idOf("/x/\xfe"));
}
