#pragma once

#include <QtGlobal>

/// What reading one property list may cost, whatever its file claims.
class PropertyListBudget
{
public:
    /// Bytes of a file.
    static constexpr qsizetype largestFile = 8 * 1024 * 1024;
    /// A value that holds nothing else is at depth 1.
    static constexpr int deepest = 64;
    static constexpr int mostValues = 100'000;

    /// Whether one more value may be read at `depth`; to be asked once for each.
    bool spend(int depth) { return depth <= deepest && ++m_values <= mostValues; }

private:
    int m_values = 0;
};
