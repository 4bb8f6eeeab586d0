#include "InstalledApplication.h"
#include "ScanItem.h"
#include "Spelling.h"

#include <gtest/gtest.h>

TEST(IdentityTest, oneItemIsOnePathInAnySpellingAndEqualInEveryField)
{
    const ScanItem item{Url("/a/./b"), ScanItemKind::cache, ScanConfidence::exact, 1, false};
    EXPECT_EQ(item.id(), "/a/b");
    EXPECT_EQ((InstalledApplication{"a", "b", item.url, 1, false}.id()), "/a/b");
    auto ticked = item;
    ticked.isSelected = true;
    EXPECT_NE(ticked, item);
    EXPECT_NE(qHash(ticked), qHash(item));
    EXPECT_EQ(qHash(ScanItem(item)), qHash(item));
    // Both are shown as U+FFFD.
    EXPECT_NE(Url("/x/\xff"), Url("/x/\xfe"));
}

TEST(IdentityTest, rawValuesAreTheNamesOfTheCasesAndReadBackExactly)
{
    EXPECT_EQ(fromRawValue<AppLanguage>(u"PL"), AppLanguage::polish);
    EXPECT_EQ(fromRawValue<AppLanguage>(u"EN"), AppLanguage::english);
    EXPECT_EQ(fromRawValue<ScanItemKind>(u"applicationSupport"), ScanItemKind::applicationSupport);
    for (const auto *none : {u"pl", u"polish", u""})
        EXPECT_EQ(fromRawValue<AppLanguage>(none), std::nullopt);
    EXPECT_EQ(fromRawValue<ScanItemKind>(u"ApplicationSupport"), std::nullopt);
    EXPECT_EQ(rawValue(SidebarSelection::mediaFinder), u"mediaFinder");
    EXPECT_EQ(allCases<MediaCategory>(),
              (QList{MediaCategory::video, MediaCategory::audio, MediaCategory::image}));
}

TEST(IdentityTest, identifiersAreOneInAnyCaseAndSpelling)
{
    EXPECT_EQ(caselessForm(u"COM.\u017b\u00f3\u0142W"), caselessForm(u"com.z\u0307o\u0301\u0142w"));
    EXPECT_NE(caselessForm(u"com.zolw"), caselessForm(u"com.\u017c\u00f3\u0142w"));
    EXPECT_EQ(canonicalFileName("Z\u0307o\u0301\u0142w"), "\u017b\u00f3\u0142w");
    EXPECT_EQ(canonicalFileName("Z\u0307\xff"), "Z\u0307\xff");
}
