#pragma once

#include "FileDescriptor.h"
#include "Url.h"

#include <QByteArray>

#include <memory>
#include <optional>
#include <sys/stat.h>
#include <variant>

/// Where on this computer the disk lies that the program works on: nowhere special in the product, a folder for another
/// computer's disk, for the sample disk and the tests, so that these run the product's own code. Every service of this
/// folder takes its paths through the one object. A value, whose copies share what is open; any thread.
///
/// Whatever links a disk in a folder holds, a path of it leads on this disk or nowhere: the kernel itself resolves it
/// with the folder for its root, so that "/var" → "private/var" and "/Users/anna/Documents" → "/Volumes/Data" lead
/// where they led on the disk's own computer, and ".." at the top leads no further.
class DiskRoot
{
public:
    /// The computer's own root.
    DiskRoot() = default;

    /// The folder `prefix` of this computer: absolute, free of links and of "..". It is opened at once, or when it is
    /// first needed where it is still to be made, and is the disk from then on, whatever is mounted in its place.
    /// `place` is what the disk's own paths call it: a home folder without the disk that it was on is "/Users/NAME", and
    /// nothing else is there.
    explicit DiskRoot(QByteArray prefix, const Url &place = Url("/"));

    /// The folder that the disk lies in, without a trailing separator; empty for the computer's own root.
    const QByteArray &prefix() const { return m_prefix; }

    /// What a program of this computer calls the location. Links on the way are not resolved, and such a program would
    /// resolve them as this computer's: not for the system's calls. Empty for a location that no file of the disk can
    /// have: no path, a relative one, or one with a byte of value zero.
    QByteArray hostPath(const Url &url) const;

    /// The location that `hostPath` is on this disk; absent when it is not absolute or outside of the disk. Links
    /// are not resolved.
    std::optional<Url> urlFor(const QByteArray &hostPath) const;

    /// Opens what lies at `url`, links followed unless `flags` says otherwise for the last one, and whatever the path's
    /// length; never as the controlling terminal and never for a program that is started. Not open, with the system's
    /// error number in errno, where that fails.
    FileDescriptor open(const Url &url, int flags) const;

    enum class Links { followed, described };

    /// The status of what lies at `url`, or the system's error number. A last link is followed or described as itself.
    std::variant<struct stat, int> status(const Url &url, Links links) const;

    /// What a program of this computer calls what lies at `url`, every link resolved; absent when nothing can be
    /// reached there.
    std::optional<QByteArray> resolvedHostPath(const Url &url) const;

private:
    class Folder;

    std::optional<QByteArray> pathInside(const Url &url) const;

    QByteArray m_prefix;
    Url m_place;
    std::shared_ptr<const Folder> m_folder;
};
