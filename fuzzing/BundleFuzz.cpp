#include "DiskBundleReader.h"
#include "DiskCodeSignature.h"
#include "Fuzz.h"
#include "FuzzedBundle.h"

void readInput(const QByteArray &input)
{
    // What one reading may be granted, see BundleBudget; a bundle is read for its information, its icon and its rights.
    constexpr qint64 mostBytes = 3 * 16 * 1024 * 1024;
    constexpr qint64 mostEntries = 3 * 100'000;

    const FuzzedBundle disk(input);
    const DiskBundleReader reader(disk, {QStringLiteral("pl"), QStringLiteral("en")});
    if (const auto bundle = reader.open(FuzzedBundle::url()))
        bundle->identifier();
    reader.iconData(FuzzedBundle::url());
    DiskCodeSignature(disk).entitlements(FuzzedBundle::url());
    require(disk.bytesRead() <= mostBytes);
    require(disk.entriesListed() <= mostEntries);
}
