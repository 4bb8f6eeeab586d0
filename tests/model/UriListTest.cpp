#include "UriList.h"

#include <gtest/gtest.h>

TEST(UriListTest, localFilesAreFoundAmongCommentsAndForeignLines)
{
    const QList<Url> expected{Url("/Applications/Foo Bar.app"), Url("/a#b"), Url("/c\xff"), Url("/d")};
    EXPECT_EQ(urlsInUriList("# file:///comment\r\nfile:///Applications/Foo%20Bar.app/\r\nhttps://example.org/a\r\n"
                            "\r\nfile://localhost/a%23b\r\nfile://server/x\nnotes\n\n  file:///c%ff \nfile:/d"),
              expected);
    EXPECT_EQ(urlsInUriList(QByteArrayView("file:///d\0", 10)), QList{Url("/d")});
    EXPECT_EQ(urlsInUriList("\r\n\n#\n"), QList<Url>());
}
