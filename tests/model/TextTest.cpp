#include "Text.h"

#include "DiskText.h"

#include <QSet>

#include <gtest/gtest.h>

TEST(TextTest, everyKeyHasATextInEachLanguageAndAMisspeltOneShows)
{
    const auto keys = allTextKeys();
    EXPECT_EQ(QSet(keys.begin(), keys.end()).size(), 124);
    EXPECT_EQ(keys.size(), 124);
    EXPECT_EQ(localizedText(u"refresh", AppLanguage::polish), u"Odśwież");
    EXPECT_EQ(localizedText(u"refresh", AppLanguage::english), u"Refresh");
    EXPECT_EQ(localizedText(u"Refresh", AppLanguage::english), u"Refresh");
    EXPECT_EQ(localizedText(u"no such key", AppLanguage::polish), u"no such key");
}

TEST(TextTest, bothLanguagesCarryTheSamePlaceholders)
{
    const auto placeholders = [](const QString &text) {
        QStringList found;
        for (const auto &part : text.split('%').sliced(1))
            found += part.first(1);
        return found;
    };
    const auto expectSame = [&](const QString &polish, const QString &english) {
        EXPECT_FALSE(polish.isEmpty() || english.isEmpty());
        EXPECT_EQ(placeholders(polish), placeholders(english)) << qPrintable(english);
    };
    for (const auto &key : allTextKeys())
        expectSame(localizedText(key, AppLanguage::polish), localizedText(key, AppLanguage::english));
    for (int i = 0; i <= static_cast<int>(DiskText::nothing); ++i) {
        const auto text = static_cast<DiskText>(i);
        expectSame(diskText(text, AppLanguage::polish), diskText(text, AppLanguage::english));
    }
}

TEST(TextTest, argumentsFillPlaceholdersInOrderAndAreNotReadAgain)
{
    EXPECT_EQ(filledText("%@ and %d", "%d", 7), u"%d and 7");
    EXPECT_EQ(filledText("50 % of %d, %d", 1), u"50 % of 1, %d");
    EXPECT_EQ(filledText("%", 1), u"%");
}
