#include "BundleBudget.h"
#include "Fuzz.h"
#include "PropertyList.h"

void readInput(const QByteArray &input)
{
    BundleBudget budget;
    if (const auto value = readPropertyList(input, budget))
        require(countValues(*value) <= BundleBudget::mostValuesOfList);
}
