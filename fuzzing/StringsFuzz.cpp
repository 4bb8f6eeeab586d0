#include "BundleBudget.h"
#include "Fuzz.h"
#include "TextPropertyListReader.h"

#include <QString>

void readInput(const QByteArray &input)
{
    const auto text = QString::fromUtf8(input);
    BundleBudget budget;
    // The dictionary without braces comes on top.
    if (const auto value = TextPropertyListReader(text, budget).read())
        require(countValues(*value) <= BundleBudget::mostValuesOfList + 1);
}
