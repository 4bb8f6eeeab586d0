#pragma once

#include "Spelling.h"

#include <QByteArray>
#include <QHashFunctions>
#include <QMetaType>
#include <QString>

#include <optional>

/// The location of a file or folder in the local file system.
///
/// A path is the file system's own bytes and is kept as it was given. Two names that are not UTF-8 may be decoded
/// alike, so identity is always decided by bytes; the decoded forms are for display and for comparing names.
class Url
{
    Q_GADGET
    Q_PROPERTY(QString path READ displayPath)
    Q_PROPERTY(QString name READ displayName)
    Q_PROPERTY(QString uri READ uri)

public:
    /// Names nothing: the path is empty.
    Url() = default;

    /// `path` is absolute. Separators at its end are dropped ("/" stays).
    explicit Url(QByteArray path);

    /// A file's URI as drags and desktop services hand it over ("file:///…", "file://localhost/…", percent-encoded
    /// bytes). Absent when it is not a local file's, or when a byte of value zero hides in it.
    static std::optional<Url> fromUri(QByteArrayView uri);

    /// The file URI, every byte outside of RFC 3986's unreserved characters and "/" percent-encoded.
    QByteArray toUri() const;
    QString uri() const { return QString::fromLatin1(toUri()); }

    const QByteArray &path() const { return m_path; }
    bool isEmpty() const { return m_path.isEmpty(); }

    /// The path with ".", ".." and repeated separators resolved textually; symbolic links are left alone. Never
    /// ends in a separator, but for the root; ".." at the root is the root.
    QByteArray standardizedPath() const;
    Url standardized() const { return Url(standardizedPath()); }

    /// The part after the last separator; "/" for the root.
    QByteArray lastPathComponent() const;

    /// What follows the last "." of the last component; empty when nothing does, when only dots come before it
    /// (".app" is a hidden file without an extension), or when there is none.
    QByteArray pathExtension() const;

    /// The last component without its extension and the extension's dot.
    QByteArray nameWithoutExtension() const;

    /// The folder that holds it; the root holds itself.
    Url parent() const;

    /// The path and the last component for people to read: bytes that are not UTF-8 are shown as U+FFFD.
    QString displayPath() const { return decodedText(m_path); }
    QString displayName() const { return decodedText(lastPathComponent()); }

    /// `name` inside of this folder. A text is stored as UTF-8.
    friend Url operator/(const Url &folder, QByteArrayView name);
    friend Url operator/(const Url &folder, const char *name) { return folder / QByteArrayView(name); }
    friend Url operator/(const Url &folder, QStringView name) { return folder / QByteArrayView(name.toUtf8()); }

    friend bool operator==(const Url &, const Url &) = default;
    friend size_t qHash(const Url &url, size_t salt = 0) { return qHash(url.m_path, salt); }

private:
    QByteArray m_path;
};

Q_DECLARE_METATYPE(Url)

/// What follows the last "." of a file name, as `Url::pathExtension` defines it; a view into `name`.
QByteArrayView extensionOf(QByteArrayView name);
