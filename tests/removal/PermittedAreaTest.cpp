#include "PermittedArea.h"

#include <gtest/gtest.h>

static bool isPermitted(const QByteArray &path, const QByteArray &home = "/Users/me")
{
    return isInsidePermittedArea(Url(path), Url(home));
}

TEST(PermittedAreaTest, everyAreaPermitsWhatItHoldsAndNotItself)
{
    for (const QByteArray area :
         {"/Users/me/Library/Application Support", "/Users/me/Library/Caches", "/Users/me/Library/Containers",
          "/Users/me/Library/Group Containers", "/Users/me/Library/Application Scripts",
          "/Users/me/Library/Preferences", "/Users/me/Library/LaunchAgents", "/Users/me/Library/Logs",
          "/Users/me/Library/Saved Application State", "/Users/me/Library/WebKit",
          "/Users/me/Library/HTTPStorages", "/Users/me/Library/Cookies", "/Users/me/Applications",
          "/Applications"}) {
        EXPECT_TRUE(isPermitted(area + "/com.acme.app")) << area.data();
        EXPECT_TRUE(isPermitted(area + "/a/b/c")) << area.data();
        for (const auto *itself : {"", "/", "/.", "/x/..", "//", " 2/x", "/../x"})
            EXPECT_FALSE(isPermitted(area + itself)) << area.data() << itself;
    }
}

TEST(PermittedAreaTest, nothingElseIsPermitted)
{
    for (const auto *path :
         {"/", "", "/Users/me", "/Users/me/", "/Users/me/Library", "/Users/me/Documents/x", "/Library/Caches/x",
          "/System/Applications/Foo.app", "/Applications/../System/Applications/Foo.app",
          "/Users/me/Library/caches/x", "/applications/Foo.app", "/Users/Me/Library/Caches/x",
          "/Users/other/Library/Caches/x", "/x/Applications/Foo.app"}) {
        EXPECT_FALSE(isPermitted(path)) << path;
    }
    // Without a home folder, its areas must not turn into the machine's.
    EXPECT_FALSE(isPermitted("/Library/Caches/x", ""));
    EXPECT_FALSE(isPermitted("/Library/Caches/x", "/"));
    EXPECT_FALSE(isPermitted("/Applications/Home", "/Applications/Home"));
}

TEST(PermittedAreaTest, spellingsOfTheSameTextAreEqualAndBytesThatAreNoTextAreNot)
{
    const QByteArray composed("/Users/\xc5\xbc"); // ż
    const QByteArray decomposed("/Users/z\xcc\x87");
    EXPECT_TRUE(isPermitted(decomposed + "/Library/Caches/x", composed));
    EXPECT_FALSE(isPermitted(decomposed, composed));
    EXPECT_TRUE(isPermitted(decomposed + "/Library/Caches/\xff", composed));

    // Both home folders are shown as U+FFFD, and so is the third.
    EXPECT_TRUE(isPermitted("/Users/\xff/Library/Caches/x", "/Users/\xff"));
    EXPECT_FALSE(isPermitted("/Users/\xfe/Library/Caches/x", "/Users/\xff"));
    EXPECT_FALSE(isPermitted("/Users/\xef\xbf\xbd/Library/Caches/x", "/Users/\xff"));
}
