#include "ByteCount.h"

#include <gtest/gtest.h>
#include <limits>
#include <tuple>

TEST(ByteCountTest, filesAreCountedInThousandsAndMemoryInPowersOfTwo)
{
    const std::tuple<qint64, const char *, const char *> rows[] = {
        {0, "0 B", "0 B"},
        {999, "999 B", "999 B"},
        {1'000, "1 KB", "1000 B"},
        {-1'024, "-1 KB", "-1 KB"},
        {1'500, "2 KB", "1 KB"},
        {20'000, "20 KB", "20 KB"},
        // Rounded, never a full unit of the next.
        {999'999, "1 MB", "977 KB"},
        {1'048'575, "1 MB", "1 MB"},
        {1'048'576, "1 MB", "1 MB"},
        {999'949'999, "999.9 MB", "953.6 MB"},
        {1'250'000, "1.3 MB", "1.2 MB"},
        {qint64(16) << 30, "17.18 GB", "16 GB"},
        {1'234'567'890'123, "1.23 TB", "1.12 TB"},
        {1'234'567'890'123'456, "1.23 PB", "1.1 PB"},
        {-1'500'000, "-1.5 MB", "-1.4 MB"},
        {std::numeric_limits<qint64>::min(), "-9.22 EB", "-8 EB"},
    };
    for (const auto &[bytes, asFile, asMemory] : rows) {
        EXPECT_EQ(formattedByteCount(bytes, ByteCountStyle::file), asFile);
        EXPECT_EQ(formattedByteCount(bytes, ByteCountStyle::memory), asMemory);
    }
}
