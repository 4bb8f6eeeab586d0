#include "BundleBudget.h"
#include "Fuzz.h"
#include "TextPropertyListReader.h"

#include <QString>

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    BundleBudget budget;
    // The dictionary without braces comes on top.
    if (const auto value = TextPropertyListReader(text, budget).read())
        require(countValues(*value) <= BundleBudget::mostValuesOfList + 1);
    return 0;
}
