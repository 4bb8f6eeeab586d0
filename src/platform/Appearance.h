#pragma once

#include <QObject>

/// Whether the user's desktop is light or dark. Lives on the main thread.
class Appearance : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)

public:
    using QObject::QObject;

    /// False where the desktop does not tell.
    virtual bool isDark() const = 0;

Q_SIGNALS:
    void changed();
};
