#include "BundleBudget.h"

#include "DiskBundleReader.h"
#include "DiskCodeSignature.h"
#include "FuzzedBundle.h"
#include "HostileInputs.h"
#include "PropertyList.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <string_view>

constexpr qint64 granted = 16 * 1024 * 1024;

static QByteArray hostile(std::string_view reader, std::string_view name)
{
    static const auto inputs = hostileInputs();
    const auto found = std::ranges::find_if(
        inputs, [&](const HostileInput &input) { return input.reader == reader && input.name == name; });
    return found == inputs.end() ? QByteArray() : found->content;
}

// How long reading them takes, and reading the others, is a test of each reader.
TEST(BundleBudgetTest, whatABundleIsGrantedIsSharedByAllThatIsReadOfIt)
{
    const auto name = [](const FileSystem &disk) {
        const auto bundle = DiskBundleReader(disk, {"pl"}).open(FuzzedBundle::url());
        EXPECT_EQ(bundle->text("CFBundleName"), "Notes");
    };
    const auto icon = [](const FileSystem &disk) {
        EXPECT_EQ(DiskBundleReader(disk, {"pl"}).iconData(FuzzedBundle::url()), QByteArray());
    };
    const auto signature = [](const FileSystem &disk) {
        EXPECT_EQ(DiskCodeSignature(disk).entitlements(FuzzedBundle::url()), std::nullopt);
    };
    struct
    {
        const char *input;
        std::function<void(const FileSystem &)> read;
        qint64 leastBytes, mostBytes;
    } const rows[] = {
        {"translations_that_share_a_damaged_file", name, granted / 2, granted},
        // Only folders that are there are looked into: this is the table, and one damaged translation.
        {"table_of_paths", name, 8'000'000, 8'000'000 + 1'100'000},
        {"icons_that_are_none", icon, granted / 2, granted},
        {"records_of_many_programs", signature, granted / 2, granted},
    };
    for (const auto &[input, read, leastBytes, mostBytes] : rows) {
        const FuzzedBundle disk(hostile("bundle", input));
        read(disk);
        EXPECT_GE(disk.bytesRead(), leastBytes) << input;
        EXPECT_LE(disk.bytesRead(), mostBytes) << input;
    }
    const FuzzedBundle crowded(hostile("bundle", "crowded_resources"));
    name(crowded);
    EXPECT_EQ(crowded.entriesListed(), 2 * 1000 - 1)
        << "every other one is a translation, and a thousand are enough";
}

TEST(BundleBudgetTest, longKeysAreNotComparedForEverAndNothingIsReadOnceTheProgramQuits)
{
    std::stop_source stop;
    BundleBudget generous, spent(stop.get_token());
    EXPECT_EQ(readPropertyList(hostile("property_list", "long_keys"), generous), std::nullopt);
    EXPECT_EQ(readPropertyList("(a)", spent), QVariantList{"a"});
    const FuzzedBundle disk(FuzzedBundle::part(FuzzedBundle::information, "{ CFBundleName = Notes; }"));
    const DiskBundleReader reader(disk, {}, {}, stop.get_token());
    EXPECT_TRUE(reader.open(FuzzedBundle::url()));
    stop.request_stop();
    EXPECT_FALSE(reader.open(FuzzedBundle::url()));
    EXPECT_EQ(readPropertyList("(a)", spent), std::nullopt);
}

TEST(BundleBudgetTest, soMuchIsGrantedAndNoMore)
{
    const auto times = [](auto spend) {
        int count = 0;
        while (count < 1'000'000 && spend())
            ++count;
        return count;
    };
    BundleBudget budget;
    const FuzzedBundle disk;
    EXPECT_EQ(times([&] { return budget.spendEntry(); }), 100'000);
    EXPECT_EQ(times([&] { return budget.readFile(disk, FuzzedBundle::url(), 1).has_value(); }), 20'000);
    EXPECT_EQ(times([&] { return budget.spendKey(1024); }), 16 * 1024);
    for (int list = 1; list <= 6; ++list) {
        budget.beginList();
        EXPECT_EQ(times([&] { return budget.spendValue(64); }), list <= 5 ? 100'000 : 0);
    }
    EXPECT_FALSE(BundleBudget().spendValue(65));
    FuzzedBundle large;
    large.setContent(FuzzedBundle::icon, QByteArray(granted, 'x'));
    BundleBudget spent;
    EXPECT_TRUE(spent.readFile(large, FuzzedBundle::url(), granted));
    EXPECT_FALSE(spent.readFile(disk, FuzzedBundle::url(), 1)) << "not even what is empty";
}
