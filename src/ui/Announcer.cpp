#include "Announcer.h"

#include <QAccessible>

Announcer::Announcer(QQuickItem *parent) : QQuickItem(parent)
{
    // Without a size it would not be told of.
    setSize({1, 1});
}

void Announcer::say(const QString &text)
{
    m_text = text;
    Q_EMIT textChanged();
    if (text.isEmpty())
        return;
    QAccessibleEvent event(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}
