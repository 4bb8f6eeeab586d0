#include "DiskBundleReader.h"

#include "InMemoryFileSystem.h"

#include <QLocale>

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace {

const QByteArray app = "/Applications/Notes.app";

class DiskBundleReaderTest : public testing::Test
{
protected:
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

} // namespace

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
    information("/Contents/Resources/en.lproj/InfoPlist.strings", "CFBundleName = English;");
    information("/Contents/Resources/pl.lproj/InfoPlist.strings",
                "CFBundleName = \"Notatki\"; CFBundleIdentifier = \"org.victim\";");
    information("/Contents/Resources/zh_TW.lproj/InfoPlist.strings", "CFBundleName = Traditional;");
    information("/Contents/Resources/zh-Hans.lproj/InfoPlist.strings", "CFBundleName = Simplified;");
    information("/Contents/Resources/pt-BR.lproj/InfoPlist.strings", "CFBundleName = Brazil;");
    information("/Contents/Resources/German.lproj/InfoPlist.strings", "CFBundleName = Deutsch;");
    information("/Contents/Resources/fr.lproj/Localizable.strings", "a = b;");
    information("/Contents/Resources/it.lproj/InfoPlist.strings", "CFBundleName = ");
    information("/Contents/Resources/en_GB.lproj/InfoPlist.strings", "CFBundleName = Britain;");

    EXPECT_EQ(name(), "Notatki");
    EXPECT_EQ(text("CFBundleIdentifier"), "-") << "an identifier is never translated";
    EXPECT_EQ(text("Other"), "1");
    EXPECT_EQ(name({"cs", "pl"}), "Notatki");
    EXPECT_EQ(name({"zh-Hant-HK"}), "Traditional");
    EXPECT_EQ(name({"zh-CN"}), "Simplified");
    EXPECT_EQ(name({"pt-PT"}), "Brazil");
    EXPECT_EQ(name({"de-AT"}), "Deutsch");
    EXPECT_EQ(name({"en-GB"}), "Britain");
    EXPECT_EQ(name({"en-US"}), "English");
    EXPECT_EQ(name({"fr", "pl"}), "English") << "the first language that the bundle has at all, then its own";
    EXPECT_EQ(name({"it"}), "English") << "a damaged translation";
    EXPECT_EQ(name({}), "English");
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
    for (const auto &[folder, language] : {std::pair("Norwegian", "nb"),
                                           {"no", "nb"},
                                           {"iw", "he"},
                                           {"zh", "zh-Hans"},
                                           {"zh_CN", "zh-Hans-CN"},
                                           {"zh_SG", "zh-Hans-SG"},
                                           {"zh_HK", "zh-Hant-HK"},
                                           {"zh_MO", "zh-Hant-MO"},
                                           {"zh_TW", "zh-Hant-TW"}})
        expectFound(folder, language);
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
