#pragma once

#include <QObject>
#include <qqml.h>

/// The desktop's clipboard. Stateless.
class Clipboard : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE static void copy(const QString &text);
};
