#pragma once

#include <QVariant>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// What each target defines: reads the input, and ends the program where what was read breaks a promise. Answers
/// 0.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

/// Ends the program, which is how a fault is reported, unless `promise` holds.
inline void require(bool promise)
{
    if (!promise)
        std::abort();
}

/// How many values there are in `value`, itself included; ends the program when they are nested too deep.
inline int countValues(const QVariant &value, int depth = 1)
{
    constexpr int deepest = 64;
    require(depth <= deepest);
    int count = 1;
    if (value.typeId() == QMetaType::QVariantList) {
        for (const auto &element : value.toList())
            count += countValues(element, depth + 1);
    } else if (value.typeId() == QMetaType::QVariantMap) {
        for (const auto &element : value.toMap())
            count += countValues(element, depth + 1);
    }
    return count;
}
