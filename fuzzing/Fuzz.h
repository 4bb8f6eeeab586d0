#pragma once

#include <QByteArray>
#include <QVariant>

#include <cstdlib>

/// What each target defines: reads the input, and ends the program where what was read breaks a promise.
void readInput(const QByteArray &input);

/// What reading an input costs: time of the processor, whichever threads it takes, and the most memory that it has at
/// once. As exact as the build allows, see Measurement.cpp.
struct Cost
{
    double seconds = 0;
    double mebibytes = 0;
};

/// Reads the input and answers what that costs. Ends the program, having said so, where it is more than a bundle may
/// cost.
Cost measuredReading(const QByteArray &input);

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
