#pragma once

#include "DiskText.h"
#include "FileSystem.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <variant>

/// Where on this computer a Mac's disk lies, and what can be opened on it.
struct FoundDisk
{
    /// A folder of this computer, free of links.
    QByteArray folder;
    /// The folder is a home without the rest of its disk.
    bool isHomeAlone = false;
    /// Home folders by the disk's own paths, in the order of their names; never empty. A home alone is "/Users/NAME".
    QList<Url> homes = {};
};

/// Why there is nothing to open.
struct DiskRefusal
{
    DiskText reason;
    QStringList values;

    QString inWords(AppLanguage language) const;
};

/// Recognises Macs' disks, mounted or copied, by what lies in a folder. Nothing of a disk is looked at but through its
/// own file system, so that its links lead nowhere else. Blocks.
class MacDiskFinder
{
public:
    /// Answers the file system of the disk that lies in a folder of this computer.
    using DiskOpener = std::function<std::unique_ptr<FileSystem>(const QByteArray &folder)>;

    /// `ownHome` is the user's home folder on this computer, which may well have a folder called "Library".
    MacDiskFinder(DiskOpener openDisk, const QByteArray &ownHome);

    /// What a user means by the path `folder` and, where it is named, `home`: the name of one in "Users", or a path, on the
    /// disk or on this computer.
    std::variant<FoundDisk, DiskRefusal> find(const QByteArray &folder,
                                              const std::optional<QByteArray> &home) const;

private:
    std::variant<FoundDisk, DiskRefusal> findIn(const QByteArray &folder,
                                                const std::optional<QByteArray> &home) const;
    std::optional<DiskRefusal> whyNotReadable(const QByteArray &folder) const;
    std::optional<std::variant<FoundDisk, DiskRefusal>> findAround(const QByteArray &folder) const;
    std::variant<FoundDisk, DiskRefusal> choose(FoundDisk found, const QByteArray &home) const;

    DiskOpener m_openDisk;
    QByteArray m_ownHome;
};
