#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The least that can be done: getdents64 and fstatat in a loop that calls itself, skipping hidden entries. The
/// yardstick; good for trees of moderate depth that nobody changes.
class BareLoop
{
public:
    /// Which files are looked at by fstatat; every file when null.
    using IsWanted = bool (*)(QByteArrayView name);

    explicit BareLoop(IsWanted isWanted = nullptr) : m_isWanted(isWanted) { }

    /// Bytes that the wanted files below `path` occupy.
    qint64 measure(const QByteArray &path) const;

private:
    qint64 measureOpen(int folder) const;

    IsWanted m_isWanted;
};
