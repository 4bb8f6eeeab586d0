#include "InstalledApplication.h"
#include "ScanItem.h"

#include <gtest/gtest.h>

namespace {
ScanItem cache(const char *path)
{
    return {Url(path), ScanItemKind::cache, ScanConfidence::exact, 1, false};
}
} // namespace

TEST(IdentityTest, spellingsOfOnePathAreOneItemButNotEqualValues)
{
    EXPECT_EQ(cache("/Users/a/Library/Caches/x").id(), cache("/Users/a/Library/Caches/./x").id());
    EXPECT_NE(cache("/Users/a/Library/Caches/x"), cache("/Users/a/Library/Caches/./x"));
}

TEST(IdentityTest, tickingACopyChangesTheValueAndNotTheIdentity)
{
    const auto item = cache("/x");
    auto copy = item;
    copy.isSelected = true;
    EXPECT_FALSE(item.isSelected);
    EXPECT_NE(item, copy);
    EXPECT_EQ(item.id(), copy.id());
}

TEST(IdentityTest, namesThatDecodeAlikeAreTwoItems)
{
    const auto one = cache("/x/\xff"), other = cache("/x/\xfe");
    EXPECT_EQ(one.url.displayPath(), other.url.displayPath());
    EXPECT_NE(one.id(), other.id());
}
