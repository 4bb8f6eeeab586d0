#include "Fuzz.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace {

/// Of all inputs; each for itself.
Cost costliest;

void printCostliest()
{
    std::fprintf(stderr, "stat::costliest_inputs: %.3f s, %.1f MiB\n", costliest.seconds, costliest.mebibytes);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    return std::atexit(printCostliest);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto cost =
        measuredReading(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    costliest = {std::max(costliest.seconds, cost.seconds), std::max(costliest.mebibytes, cost.mebibytes)};
    return 0;
}
