#include "Symbols.h"

#include "Presentation.h"
#include "SidebarSection.h"
#include "SymbolPicture.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>

/// Every symbol that a screen or a table names.
static QSet<QString> namedSymbols()
{
    QSet<QString> names;
    static const QRegularExpression literal(
        "(?<!\\.)\\b(?:systemImage|gaugeImage|name): [^\\n\"(]*\"([a-z0-9.]+)\"");
    QDirIterator files(":/qt/qml/Tarnvale", {"*.qml"});
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        auto matches = literal.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            names.insert(matches.next().captured(1));
    }
    for (const auto section : allCases<SidebarSelection>())
        names.insert(Presentation::section(section).value<SidebarSection>().symbol);
    const auto insertTiles = [&names](const auto &cases) {
        for (const auto value : cases)
            names.insert(symbolTile(value).symbol.toString());
    };
    insertTiles(allCases<ScanItemKind>());
    insertTiles(allCases<MediaCategory>());
    insertTiles(allCases<TextFileCategory>());
    return names;
}

TEST(Symbols, everyNameThatTheWindowUsesIsDrawn)
{
    const auto drawn = SymbolPicture::names();
    for (const auto &name : namedSymbols())
        EXPECT_TRUE(drawn.contains(name)) << qPrintable(name);
}
