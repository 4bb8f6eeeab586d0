#pragma once

#include <QQuickItem>

/// Has assistive technology say what changed where nobody looks. Stateless.
class Announcer : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Says `text`, which `item` is about; nothing is said where it is empty. Before Qt 6.8, which knows announcements,
    /// what is said is the name of `item`.
    Q_INVOKABLE static void say(QQuickItem *item, const QString &text);
};
