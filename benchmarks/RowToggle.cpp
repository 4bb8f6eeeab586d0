// How long ticking a row takes in a list of 50,000.

#include "Figure.h"
#include "ListModel.h"
#include "ScanItem.h"

#include <chrono>

std::vector<Figure> rowToggle(const BenchDisk &)
{
    constexpr double mostMicroseconds = 100;
    constexpr int count = 50'000;
    ListModel<ScanItem> list;
    QList<ScanItem> items;
    for (int i = 0; i < count; ++i)
        items.push_back({Url("/Library/Caches/item " + QByteArray::number(i)), ScanItemKind::cache,
                         ScanConfidence::exact, i, false});
    list.replace(std::move(items));

    const auto start = std::chrono::steady_clock::now();
    for (int row = 0; row < count; ++row)
        list.setSelected(row, true);
    const std::chrono::duration<double, std::micro> all = std::chrono::steady_clock::now() - start;
    if (list.selectedCount() != count || list.selectedBytes() != list.totalBytes())
        qFatal("the sums are wrong");
    const auto each = all.count() / count;
    return {atMost("ticking one of 50,000 rows", each, mostMicroseconds, QStringLiteral("µs"), 2)};
}
