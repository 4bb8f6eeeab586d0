#include "Text.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

TEST(TextTest, keysAreExactAndUnknownOnesAreShown)
{
    EXPECT_EQ(localizedText(u"cancel", AppLanguage::polish), u"Anuluj");
    EXPECT_EQ(localizedText(u"cancel", AppLanguage::english), u"Cancel");
    for (const auto *unknown : {u"Cancel", u"", u"no such key"})
        EXPECT_EQ(localizedText(unknown, AppLanguage::polish), unknown);
    EXPECT_NE(localizedText(u"mediaFinder", AppLanguage::english),
              localizedText(u"media_finder", AppLanguage::english));
}

TEST(TextTest, bothLanguagesCarryTheSamePlaceholders)
{
    const QRegularExpression placeholder("%.");
    const auto placeholders = [&](const QString &text) {
        QStringList found;
        for (auto matches = placeholder.globalMatch(text); matches.hasNext();)
            found += matches.next().captured();
        return found;
    };
    const auto keys = allTextKeys();
    EXPECT_EQ(keys.size(), 124);
    for (const auto &key : keys) {
        EXPECT_EQ(placeholders(localizedText(key, AppLanguage::polish)),
                  placeholders(localizedText(key, AppLanguage::english)))
            << qPrintable(key);
    }
}

TEST(TextTest, argumentsFillPlaceholdersInOrderAndAreNotReadAgain)
{
    const auto message = localizedText(u"confirm_message", AppLanguage::english);
    EXPECT_EQ(filledText(message, 3, "12 KB"),
              u"This will move 3 items (12 KB) to Trash. They can be restored from Trash.");
    EXPECT_EQ(filledText(localizedText(u"delete_partial", AppLanguage::english), 5, 2), u"Moved: 5, failures: 2.");
    EXPECT_EQ(filledText("%@ and %d", "%d", 7), u"%d and 7");
}
