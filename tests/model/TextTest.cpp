#include "Text.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

TEST(TextTest, bothLanguagesCarryTheSamePlaceholders)
{
    const QRegularExpression placeholder("%.");
    const auto placeholders = [&](const QString &text) {
        QStringList found;
        for (auto matches = placeholder.globalMatch(text); matches.hasNext();)
            found += matches.next().captured();
        return found;
    };
    for (const auto &key : allTextKeys()) {
        EXPECT_EQ(placeholders(localizedText(key, AppLanguage::polish)),
                  placeholders(localizedText(key, AppLanguage::english)))
            << qPrintable(key);
    }
}

TEST(TextTest, argumentsFillPlaceholdersInOrderAndAreNotReadAgain)
{
    EXPECT_EQ(filledText("%@ and %d", "%d", 7), u"%d and 7");
}
