#include "Fuzz.h"
#include "IconFamily.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    require(iconWidth(bytes) >= 0 && iconWidth(bytes) <= 2048);
    const auto picture = bestPicture(bytes);
    require(bytes.contains(picture));
    require(picture.isEmpty() || picture == bytes || iconWidth(picture) > 0);
    return 0;
}
