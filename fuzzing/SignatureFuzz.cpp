#include "BundleBudget.h"
#include "Entitlements.h"
#include "Fuzz.h"

#include <algorithm>

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto fileSize = static_cast<qint64>(size);
    qint64 bytesRead = 0;
    BundleBudget budget;
    const auto part = [&](qint64 offset, qint64 length) {
        require(offset >= 0 && length >= 0);
        const auto available = offset < fileSize ? std::min(length, fileSize - offset) : 0;
        bytesRead += available;
        return available > 0 ? QByteArray(reinterpret_cast<const char *>(data + offset), available) : QByteArray();
    };
    const auto entitlements = readEntitlements(part, budget);
    // Forty programs at most, whose headers, indices and entitlements may all be the same bytes.
    require(bytesRead <= 40 * 600 * (fileSize + 1));
    if (entitlements)
        require(countValues(*entitlements) <= BundleBudget::mostValuesOfList + 1);
    return 0;
}
