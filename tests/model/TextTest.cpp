#include "Text.h"

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
    const auto placeholders = [](const QString &key, AppLanguage language) {
        QStringList found;
        for (const auto &part : localizedText(key, language).split('%').sliced(1))
            found += part.first(1);
        return found;
    };
    for (const auto &key : allTextKeys())
        EXPECT_EQ(placeholders(key, AppLanguage::polish), placeholders(key, AppLanguage::english))
            << qPrintable(key);
}

TEST(TextTest, argumentsFillPlaceholdersInOrderAndAreNotReadAgain)
{
    EXPECT_EQ(filledText("%@ and %d", "%d", 7), u"%d and 7");
    EXPECT_EQ(filledText("50 % of %d, %d", 1), u"50 % of 1, %d");
    EXPECT_EQ(filledText("%", 1), u"%");
}
