#include "ByteCount.h"

#include <gtest/gtest.h>

TEST(ByteCountTest, fileStyleIsDecimalAndMemoryStyleIsBinary)
{
    EXPECT_EQ(formattedByteCount(12'000, ByteCountStyle::file), "12 KB");
    EXPECT_EQ(formattedByteCount(1'048'576, ByteCountStyle::file), "1 MB");
    EXPECT_EQ(formattedByteCount(1'048'576, ByteCountStyle::memory), "1 MB");
    EXPECT_EQ(formattedByteCount(qint64(16) << 30, ByteCountStyle::memory), "16 GB");
    EXPECT_EQ(formattedByteCount(qint64(16) << 30, ByteCountStyle::file), "17.18 GB");
}

TEST(ByteCountTest, smallNegativeAndExtremeCounts)
{
    EXPECT_EQ(formattedByteCount(0, ByteCountStyle::file), "0 B");
    EXPECT_EQ(formattedByteCount(999, ByteCountStyle::file), "999 B");
    EXPECT_EQ(formattedByteCount(-1'500'000, ByteCountStyle::file), "-1.5 MB");
    EXPECT_EQ(formattedByteCount(std::numeric_limits<qint64>::max(), ByteCountStyle::file), "9.22 EB");
    EXPECT_EQ(formattedByteCount(std::numeric_limits<qint64>::min(), ByteCountStyle::memory), "-8 EB");
}

TEST(ByteCountTest, roundingNeverShowsAFullUnitOfTheNext)
{
    EXPECT_EQ(formattedByteCount(999'999, ByteCountStyle::file), "1 MB");
    EXPECT_EQ(formattedByteCount(999'949'999, ByteCountStyle::file), "999.9 MB");
    EXPECT_EQ(formattedByteCount(999'999'999, ByteCountStyle::file), "1 GB");
    EXPECT_EQ(formattedByteCount(1024 * 1024 - 1, ByteCountStyle::memory), "1 MB");
}
