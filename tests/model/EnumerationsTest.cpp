#include "Enumerations.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

TEST(EnumerationsTest, rawValuesAreTheCaseNamesButForLanguages)
{
    EXPECT_EQ(fromRawValue<AppLanguage>(u"PL"), AppLanguage::polish);
    EXPECT_EQ(fromRawValue<AppLanguage>(u"EN"), AppLanguage::english);
    for (const auto *text : {u"pl", u"polish", u""})
        EXPECT_EQ(fromRawValue<AppLanguage>(text), std::nullopt);
    EXPECT_EQ(fromRawValue<ScanItemKind>(u"applicationSupport"), ScanItemKind::applicationSupport);
    EXPECT_EQ(fromRawValue<ScanItemKind>(u"ApplicationSupport"), std::nullopt);
}

TEST(EnumerationsTest, allCasesComeInTheOrderOfTheirDeclaration)
{
    EXPECT_THAT(allCases<MediaCategory>(),
                ElementsAre(MediaCategory::video, MediaCategory::audio, MediaCategory::image));
    EXPECT_EQ(allCases<SidebarSelection>().size(), 7);
    EXPECT_EQ(rawValue(allCases<TextFileCategory>()[3]), "libreOffice");
}
