#include "BundleBudget.h"
#include "DiskCodeSignature.h"
#include "Fuzz.h"
#include "FuzzedBundle.h"

void readInput(const QByteArray &input)
{
    constexpr qint64 mostBytes = 16 * 1024 * 1024;

    FuzzedBundle disk;
    disk.setContent(FuzzedBundle::executable, input);
    const auto entitlements = DiskCodeSignature(disk).entitlements(FuzzedBundle::url());
    require(disk.bytesRead() <= mostBytes);
    if (entitlements)
        require(countValues(*entitlements) <= BundleBudget::mostValuesOfList + 1);
}
