#pragma once

#include "Url.h"

#include <QList>
#include <QProcess>
#include <QTemporaryDir>

#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

/// A home folder with a Trash of its own, and processes that use it.
class TrashSandbox
{
public:
    /// Made inside of `folder`; unless told where every user gets and which is no disk in memory.
    explicit TrashSandbox(const QString &folder = QStringLiteral("/var/tmp"));
    ~TrashSandbox();
    Q_DISABLE_COPY_MOVE(TrashSandbox)

    /// Folder and Trash on this computer.
    QByteArray home() const { return m_home; }
    QByteArray trash() const { return m_home + "/.local/share/Trash"; }
    /// A path in the home folder as a location on a disk without a prefix.
    Url url(const QByteArray &path) const { return Url(m_home + '/' + path); }

    /// Makes a file of these bytes, with the folders above it.
    Url file(const QByteArray &path, const QByteArray &content = "content") const;

    /// Everything below `path`: from its path to its type, mode, and a file's time of change and content or a
    /// link's target. Names and contents are bytes.
    std::map<std::string, std::string> snapshot(const QByteArray &path) const;

    /// What the Trash at `trash` holds, by its records: from where each item came from to where it is. Every item has to
    /// have a record; a record of nothing is left out. Its paths may be relative to `topDirectory`.
    static std::map<QByteArray, QByteArray> trashed(const QByteArray &trash, const QByteArray &topDirectory = {});

    /// The home folder and everything in it is this user's from now on, and programs run as that user. Root only.
    void giveTo(uid_t user);

    /// What programs started by `start` and `run` see.
    QProcessEnvironment environment;

    void start(QProcess &process, const QString &program, const QStringList &arguments = {}) const;
    /// Everything that the program writes when it is given `input`; it has to succeed.
    QByteArray run(const QString &program, const QStringList &arguments, const QByteArray &input = {}) const;

    /// Has the items moved to the Trash one after another; one answer an item, as `WorkspaceSession` words it.
    std::vector<std::string> recycle(const QList<Url> &items, const QByteArray &disk = {}) const;
    /// The same in one request to the trash service, whose home folder is "/Users/me" on `disk`.
    std::vector<std::string> remove(const QList<Url> &items, const QByteArray &disk) const;
    QString session() const { return m_session; }
    static QByteArray lines(const QList<Url> &items);

private:
    std::vector<std::string> answers(const QList<Url> &items, const QStringList &arguments) const;

    QTemporaryDir m_folder;
    QByteArray m_home;
    QString m_session;
    uid_t m_user;
};
