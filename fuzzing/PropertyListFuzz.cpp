#include "BundleBudget.h"
#include "Fuzz.h"
#include "PropertyList.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    BundleBudget budget;
    if (const auto value = readPropertyList(bytes, budget))
        require(countValues(*value) <= BundleBudget::mostValuesOfList);
    return 0;
}
