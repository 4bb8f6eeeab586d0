#include "Announcer.h"

#include <QAccessible>

void Announcer::say(QQuickItem *item, const QString &text)
{
    if (!item || text.isEmpty())
        return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(item, text);
#else
    QAccessibleEvent event(item, QAccessible::Alert);
#endif
    QAccessible::updateAccessibility(&event);
}
