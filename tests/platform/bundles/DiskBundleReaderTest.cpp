#include "DiskBundleReader.h"

#include "InMemoryFileSystem.h"

#include <QLocale>

#include <gtest/gtest.h>
#include <string>
#include <utility>

const QByteArray app = "/Applications/Notes.app";

struct DiskBundleReaderTest : testing::Test
{
    void information(const QByteArray &path, const QByteArray &text) { disk.fileWithContent(app + path, text); }

    /// What the bundle says under `key` to a user of these languages; "-" for nothing.
    std::string text(const char *key, const QStringList &languages = {"pl-PL", "en"}) const
    {
        const auto bundle = DiskBundleReader(disk, languages).open(disk.url(app));
        return bundle ? bundle->text(key).value_or("-").toStdString() : "no bundle";
    }
    std::string name(const QStringList &languages = {"pl-PL", "en"}) const
    {
        return text("CFBundleName", languages);
    }

    InMemoryFileSystem disk;
};

TEST_F(DiskBundleReaderTest, informationIsFoundInEveryLayout)
{
    for (const auto *place : {"/Contents/Info.plist", "/Info.plist", "/Resources/Info.plist",
                              "/Versions/Current/Resources/Info.plist", "/WrappedBundle/Info.plist"}) {
        disk.remove(app);
        information(place, "{ CFBundleIdentifier = org.notes; }");
        EXPECT_EQ(text("CFBundleIdentifier"), "org.notes") << place;
    }
    information("/Contents/other", "");
    EXPECT_EQ(text("CFBundleIdentifier"), "no bundle") << "a folder of contents decides for itself";
}

TEST_F(DiskBundleReaderTest, whatCannotBeReadIsNoBundle)
{
    EXPECT_EQ(name(), "no bundle");
    const auto path = app + "/Contents/Info.plist";
    for (const QByteArray broken : {"", "<plist>", "just text", "( a )"}) {
        disk.fileWithContent(path, broken);
        EXPECT_EQ(name(), "no bundle") << broken.constData();
        disk.remove(path);
    }
    disk.folder(path);
    EXPECT_EQ(name(), "no bundle");
    EXPECT_FALSE(DiskBundleReader(disk, {}).open(disk.url(path)));
}

TEST_F(DiskBundleReaderTest, valuesFollowTheUsersLanguages)
{
    information("/Contents/Info.plist", "{ CFBundleName = Notes; CFBundleDevelopmentRegion = en; Other = 1; }");
    for (const QByteArray folder : {"en", "zh_TW", "zh-Hans", "pt-BR", "German", "en_GB"})
        information("/Contents/Resources/" + folder + ".lproj/InfoPlist.strings",
                    "CFBundleName = \"" + folder + "\";");
    information("/Contents/Resources/pl.lproj/InfoPlist.strings",
                "CFBundleName = \"Notatki\"; CFBundleIdentifier = \"org.victim\";");
    information("/Contents/Resources/fr.lproj/Localizable.strings", "a = b;");
    information("/Contents/Resources/it.lproj/InfoPlist.strings", "CFBundleName = ");

    EXPECT_EQ(name(), "Notatki");
    EXPECT_EQ(text("CFBundleIdentifier"), "-") << "an identifier is never translated";
    EXPECT_EQ(text("Other"), "1");
    EXPECT_EQ(name({"cs", "pl"}), "Notatki");
    for (const QString pair :
         {"zh-Hant-HK zh_TW", "zh-CN zh-Hans", "pt-PT pt-BR", "de-AT German", "en-GB en_GB", "en-US en"})
        EXPECT_EQ(name({pair.section(' ', 0, 0)}), pair.section(' ', 1).toStdString());
    EXPECT_EQ(name({"fr", "pl"}), "en") << "the first language that the bundle has at all, then its own";
    EXPECT_EQ(name({"it"}), "en") << "a damaged translation";
    EXPECT_EQ(name({}), "en");
}

TEST_F(DiskBundleReaderTest, anyTranslationIsBetterThanNone)
{
    information("/Contents/Info.plist", "{ CFBundleName = Notes; CFBundleDevelopmentRegion = de; }");
    information("/Contents/Resources/" + QByteArray(65, 'z') + ".lproj/InfoPlist.strings", "CFBundleName = a;");
    EXPECT_EQ(name(), "Notes") << "no language has such a name";
    information("/Contents/Resources/" + QByteArray(64, 'z') + ".lproj/InfoPlist.strings", "CFBundleName = b;");
    EXPECT_EQ(name(), "b");
    // Each comes before those above it. Of two that serve alike, the same counts on every disk.
    for (const QByteArray folder : {"sv.lproj/", "cs.lproj/", "en_GB.lproj/", "English.lproj/", "Base.lproj/", "",
                                    "German.lproj/", "pl.lproj/"}) {
        information("/Contents/Resources/" + folder + "InfoPlist.strings", "CFBundleName = \"" + folder + "\";");
        EXPECT_EQ(name({"pl-PL"}), folder.toStdString());
    }
}

TEST_F(DiskBundleReaderTest, languagesGoByOldNamesAsWell)
{
    const auto expectFound = [&](const QByteArray &folder, const QString &language) {
        disk.remove(app);
        information("/Contents/Info.plist", "{ CFBundleName = Notes; }");
        information("/Contents/Resources/Base.lproj/InfoPlist.strings", "CFBundleName = Base;");
        information("/Contents/Resources/" + folder + ".lproj/InfoPlist.strings", "CFBundleName = Found;");
        EXPECT_EQ(name({language}), "Found") << folder.constData();
    };
    for (const auto *tag : {"ar", "ca", "hr", "cs", "da", "nl", "en", "fi", "fr", "de", "el", "he", "hu",
                            "it", "ja", "ko", "pl", "pt", "ro", "ru", "sk", "es", "sv", "th", "tr", "uk"})
        expectFound(QLocale::languageToString(QLocale(tag).language()).toUtf8(), tag);
    // Chinese without a script is told apart by where it is spoken.
    for (const QByteArray pair : {"Norwegian nb", "no nb", "iw he", "zh zh-Hans", "zh_CN zh-Hans-CN",
                                  "zh_SG zh-Hans-SG", "zh_HK zh-Hant-HK", "zh_MO zh-Hant-MO", "zh_TW zh-Hant-TW"})
        expectFound(pair.split(' ')[0], pair.split(' ')[1]);
}

TEST_F(DiskBundleReaderTest, theCompiledTableIsATranslation)
{
    information("/Contents/Info.plist", "{ CFBundleName = Notes; CFBundleDisplayName = (1); }");
    information("/Contents/Resources/InfoPlist.loctable",
                "{ pl = { CFBundleName = Notatki; }; pt_BR = { CFBundleName = { a = b; }; }; de = 1; }");
    information("/Contents/Resources/de.lproj/InfoPlist.strings", "CFBundleName = Notizen;");
    disk.folder(app + "/Contents/Resources/pl.lproj");

    EXPECT_EQ(name(), "Notatki");
    EXPECT_EQ(name({"de"}), "Notizen") << "a table without that language";
    EXPECT_EQ(name({"pt"}), "-") << "a translation that is no text hides the name";
    EXPECT_EQ(name({"sv"}), "Notatki") << "any is better than none, the table's first";
    EXPECT_EQ(text("CFBundleDisplayName"), "-") << "a display name that is no text";
}
