#include "ByteCount.h"

#include <QLocale>

#include <array>
#include <cmath>
#include <cstdlib>

QString formattedByteCount(qint64 bytes, ByteCountStyle style)
{
    struct Unit
    {
        const char *name;
        int decimals;
    };
    // No more fits into 64 bits.
    constexpr std::array<Unit, 6> units{{{"KB", 0}, {"MB", 1}, {"GB", 2}, {"TB", 2}, {"PB", 2}, {"EB", 2}}};

    const double base = style == ByteCountStyle::file ? 1000 : 1024;
    const auto magnitude = std::abs(static_cast<double>(bytes));
    if (magnitude < base)
        return QStringLiteral("%1 B").arg(bytes);

    // Rounded before the unit is chosen for good, so that 999,999 bytes are 1 MB and not 1000 KB.
    auto value = magnitude / base;
    size_t unit = 0;
    const auto rounded = [&] {
        const auto scale = std::pow(10, units[unit].decimals);
        return std::round(value * scale) / scale;
    };
    while (rounded() >= base) {
        value /= base;
        ++unit;
    }

    auto locale = QLocale::system();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    auto digits = locale.toString(rounded(), 'f', units[unit].decimals);
    if (units[unit].decimals > 0) {
        while (digits.endsWith(locale.zeroDigit()))
            digits.chop(1);
        if (digits.endsWith(locale.decimalPoint()))
            digits.chop(locale.decimalPoint().size());
    }
    return QStringLiteral("%1%2 %3").arg(bytes < 0 ? locale.negativeSign() : QString(), digits,
                                         QLatin1String(units[unit].name));
}
