#pragma once

#include "OrdinaryUser.h"
#include "TemporaryDisk.h"

#include <QList>

#include <map>
#include <string>
#include <vector>

/// A home folder with a Trash of its own: the one of this program, and of what it starts, as long as it lives.
class TrashSandbox
{
public:
    /// Made inside of `folder`; unless told where every user gets and which is no disk in memory.
    explicit TrashSandbox(const char *folder = "/var/tmp");
    ~TrashSandbox() { setFault(Fault::none); }
    Q_DISABLE_COPY_MOVE(TrashSandbox)

    /// Folder and Trash on this computer.
    const QByteArray &home() const { return m_disk.root().prefix(); }
    QByteArray trash() const { return home() + "/.local/share/Trash"; }
    /// A path in the home folder as a location on a disk without a prefix.
    Url url(const QByteArray &path) const { return Url(home() + '/' + path); }

    /// Makes a file of these bytes, with the folders above it.
    Url file(const QByteArray &path, const QByteArray &content = "content") const
    {
        m_disk.file('/' + path, content);
        return url(path);
    }

    /// Everything below `path` with its mode, a link's target, and a file's time of change and content.
    QByteArray snapshot(const QByteArray &path) const;

    /// What the Trash at `trash` holds, by its records: from where each item came from to where it is. Every item has to
    /// have a record; a record of nothing is left out. Its paths may be relative to `topDirectory`.
    static std::map<QByteArray, QByteArray> trashed(const QByteArray &trash, const QByteArray &topDirectory = {});

    /// The home folder and everything in it is an ordinary user's from now on, and this program as long as the answer lives.
    [[nodiscard]] OrdinaryUser giveToOrdinaryUser() const;

    /// What the disks do wrong, until this object goes.
    enum class Fault {
        none,
        /// They cannot promise to replace nothing, as most across a network.
        plainRenameOnly,
        /// What they answer to a move gets lost there.
        answerIsLost,
        /// They lose what they were given.
        writingThroughFails,
    };
    static void setFault(Fault fault);

    /// Has the items moved to the Trash one after another: of each "moved" and the URI in the Trash, or the reason.
    static std::vector<std::string> recycle(const QList<Url> &items, const QByteArray &disk = {});

    /// What a program of the computer's writes, which has to succeed.
    static QByteArray run(const QString &program, const QStringList &arguments, const QByteArray &input = {});

private:
    const TemporaryDisk m_disk;
};
