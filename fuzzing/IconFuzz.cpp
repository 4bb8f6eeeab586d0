#include "Fuzz.h"
#include "IconFamily.h"

void readInput(const QByteArray &input)
{
    require(iconWidth(input) >= 0 && iconWidth(input) <= 2048);
    const auto picture = bestPicture(input);
    require(input.contains(picture));
    require(picture.isEmpty() || picture == input || iconWidth(picture) > 0);
}
