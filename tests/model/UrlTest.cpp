#include "Url.h"

#include "FileNames.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

TEST(UrlTest, standardisingResolvesDotsAndSeparatorsTextually)
{
    QByteArrayList standardized;
    for (const auto *path :
         {"/a/Caches/.", "/a/Caches/x/..", "//a///b/./c/", "/../../a", "/a/..", "/", "/a/...b/..c", ""})
        standardized.append(Url(path).standardizedPath());
    EXPECT_EQ(standardized,
              (QByteArrayList{"/a/Caches", "/a/Caches", "/a/b/c", "/a", "/", "/", "/a/...b/..c", ""}));
}

TEST(UrlTest, foldersAndNamesMakeOnePathAndComeApartAgain)
{
    EXPECT_EQ(Url("/a//").path(), "/a");
    EXPECT_EQ(Url("//").path(), "/");
    EXPECT_EQ((Url("/") / "a").path(), "/a");
    EXPECT_EQ((Url("/a/") / "b/").path(), "/a/b");
    EXPECT_EQ(Url("/a/b").parent().path(), "/a");
    EXPECT_EQ(Url("/a").parent().path(), "/");
    EXPECT_EQ(Url("/").parent().path(), "/");
    EXPECT_EQ(Url("/a/b").lastPathComponent(), "b");
    EXPECT_EQ(Url("/").lastPathComponent(), "/");
    // Shown with its marks, and without what is no text.
    EXPECT_EQ(Url("/a/\ufeffnotes\xff").displayName(), u"\ufeffnotes\ufffd");
    EXPECT_EQ(Url("/\ufeffa").displayPath(), u"/\ufeffa");
}

TEST(UrlTest, extensionsFollowTheLastDotOfTheName)
{
    QByteArrayList split;
    for (const auto *path : {"/a/Foo Bar.app", "/a.b/c", "/a/.app", "/a/...app", "/a/..b.app", "/a/b.c", "/a/b.",
                             "/a/org.notes.agent.plist"})
        split.append(Url(path).nameWithoutExtension() + '|' + Url(path).pathExtension());
    EXPECT_EQ(split, (QByteArrayList{"Foo Bar|app", "c|", ".app|", "...app|", "..b|app", "b|c", "b.|",
                                     "org.notes.agent|plist"}));
}

TEST(FileNamesTest, aNameIsTheTextThatSpellsItAndNoOther)
{
    for (const QByteArray name : {"Zażółć", "", "\xef\xbf\xbd",
                                  "\xef\xbb\xbf"
                                  "Caches"}) {
        const auto text = decodedFileName(name);
        ASSERT_TRUE(text) << name.constData();
        EXPECT_EQ(encodedFileName(*text), name);
    }
    for (const auto *name : {"\xff", "a\xc5", "\xed\xa0\x80"})
        EXPECT_FALSE(decodedFileName(name)) << name;
    for (const auto &name :
         {QByteArray(), QByteArray("."), QByteArray(".."), QByteArray("a/b"), QByteArray("a\0", 2)})
        EXPECT_FALSE(isFileName(name)) << name.constData();
    EXPECT_TRUE(isFileName("..."));
}

TEST(UrlTest, urisOfLocalFilesKeepEveryByte)
{
    EXPECT_EQ(Url::fromUri("file:///Applications/Za%C5%BC%C3%B3%C5%82%C4%87%20%25.app/")->path(),
              "/Applications/Zażółć %.app");
    EXPECT_EQ(Url::fromUri("file://localhost/a%FFb")->path(), "/a\xff"
                                                              "b");
    EXPECT_EQ(Url::fromUri("FILE:/a")->path(), "/a");
    for (const auto *refused : {"http:///a", "file://server/a", "file:a", "file://", "", "file:///a%00b", "/a"})
        EXPECT_EQ(Url::fromUri(refused), std::nullopt) << refused;

    EXPECT_EQ(Url("/azAZ09-._~/@[`{:\xff").toUri(), "file:///azAZ09-._~/%40%5B%60%7B%3A%FF");

    const Url odd(QByteArray("/a b/\xff%\n#?.app"));
    EXPECT_EQ(Url::fromUri(odd.toUri()), odd);
}
