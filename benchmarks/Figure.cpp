#include "Figure.h"

Figure atMost(const QString &what, double measured, double limit, const QString &unit, int decimals)
{
    return {what, QStringLiteral("%1 %2").arg(measured, 0, 'f', decimals).arg(unit),
            QStringLiteral("at most %1 %2").arg(limit).arg(unit), measured <= limit};
}
