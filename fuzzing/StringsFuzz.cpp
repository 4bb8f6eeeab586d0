#include "Fuzz.h"
#include "TextPropertyListReader.h"

#include <QString>

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (const auto value = TextPropertyListReader(text).read())
        require(countValues(*value) <= 100'000);
    return 0;
}
