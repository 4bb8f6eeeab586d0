#include "Fuzz.h"
#include "PropertyList.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (const auto value = readPropertyList(bytes))
        require(countValues(*value) <= 100'000);
    return 0;
}
