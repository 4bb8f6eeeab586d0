#pragma once

#include "Url.h"

#include <QMetaType>
#include <QString>

/// One application bundle.
struct InstalledApplication
{
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString bundleIdentifier MEMBER bundleIdentifier)
    Q_PROPERTY(Url url MEMBER url)
    Q_PROPERTY(QString path READ path)
    Q_PROPERTY(QString fileName READ fileName)
    Q_PROPERTY(QString folder READ folder)
    Q_PROPERTY(qint64 sizeBytes MEMBER sizeBytes)
    Q_PROPERTY(bool isSystemApplication MEMBER isSystemApplication)

public:
    /// The name shown to the user.
    QString name;
    /// Never empty.
    QString bundleIdentifier;
    /// The bundle's folder, whose name ends in ".app".
    Url url;
    /// Allocated bytes of the whole bundle on disk.
    qint64 sizeBytes = 0;
    /// Whether it belongs to the operating system; such an application is never removed.
    bool isSystemApplication = false;

    /// Identity: the standardised path.
    QByteArray id() const { return url.standardizedPath(); }

    /// For display.
    QString path() const { return url.displayPath(); }
    QString fileName() const { return url.displayName(); }
    QString folder() const { return url.parent().displayPath(); }

    bool operator==(const InstalledApplication &) const = default;
    friend size_t qHash(const InstalledApplication &a, size_t salt = 0)
    {
        return qHashMulti(salt, a.name, a.bundleIdentifier, a.url, a.sizeBytes, a.isSystemApplication);
    }
};

Q_DECLARE_METATYPE(InstalledApplication)
