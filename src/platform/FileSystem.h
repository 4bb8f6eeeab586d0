#pragma once

#include "Url.h"

#include <QByteArray>
#include <QList>

#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

enum class FileType { regular, directory, symbolicLink, other };

/// What is known of one item, a symbolic link being described as itself.
struct ResourceValues
{
    FileType type;
    /// Bytes on disk of everything that the item consists of; absent when the file system does not tell.
    std::optional<qint64> totalAllocatedSize;
    /// Bytes on disk of the item's data alone; absent when the file system does not tell.
    std::optional<qint64> allocatedSize;
    /// When its data last changed, in nanoseconds since 1970; absent when the file system does not tell.
    std::optional<qint64> modificationTime = {};
};

/// The element at which an enumeration stands. It is valid until the enumeration goes on.
class DirectoryEntry
{
public:
    virtual ~DirectoryEntry() = default;

    /// The last component of its path; a view that is valid as long as the entry.
    virtual QByteArrayView name() const = 0;

    /// What it is, a link being a link; costs nothing where the file system's listing tells.
    virtual FileType type() const = 0;

    /// How deep it lies: direct children of the enumerated folder are at level 1.
    virtual int level() const = 0;

    /// The enumerated folder's URL with the path down to the element appended; made when asked.
    virtual Url url() const = 0;

    /// Read when asked; absent when they cannot be read, such as when the element has vanished.
    virtual std::optional<ResourceValues> resourceValues() const = 0;

    /// Do not enter this element. Means nothing where it would not be entered anyway: siblings still follow.
    virtual void skipDescendants() = 0;
};

/// A listing in progress: a forward iteration over entries.
class DirectoryWalk : public DirectoryEntry
{
public:
    /// Goes to the next element (to the first one, when it is called for the first time); false at the end.
    virtual bool next() = 0;
};

/// Where an entry comes in the order in which one thread would meet everything: what is smaller comes first, a folder
/// before what it holds. From the walked folder's index down, the positions in the listings.
using WalkPlace = std::vector<quint32>;

/// Entries of one folder that a walk shows to one of its threads: `for (auto &entry : part)`, once.
class FolderPart : public DirectoryWalk
{
public:
    /// Which of the folders given to the walk they lie in.
    virtual size_t walkedFolder() const = 0;

    /// Of the element at which it stands; made when asked.
    virtual WalkPlace place() const = 0;

    class Iterator
    {
    public:
        using value_type = FolderPart;
        using difference_type = std::ptrdiff_t;

        explicit Iterator(FolderPart *part) : m_part(part) { }
        FolderPart &operator*() const { return *m_part; }
        Iterator &operator++()
        {
            if (!m_part->next())
                m_part = nullptr;
            return *this;
        }
        void operator++(int) { ++*this; }
        bool operator==(std::default_sentinel_t) const { return !m_part; }

    private:
        FolderPart *m_part;
    };

    Iterator begin() { return Iterator(next() ? this : nullptr); }
    std::default_sentinel_t end() const { return {}; }
};

/// A range over the entries of a folder, to be iterated once: `for (const auto &entry : enumeration)`. They are read as
/// the iteration goes on.
class DirectoryEnumeration
{
public:
    /// An enumeration of nothing.
    DirectoryEnumeration() = default;
    explicit DirectoryEnumeration(std::unique_ptr<DirectoryWalk> walk) : m_walk(std::move(walk)) { }

    class Iterator
    {
    public:
        using value_type = DirectoryEntry;
        using difference_type = std::ptrdiff_t;

        explicit Iterator(DirectoryWalk *walk) : m_walk(walk) { }
        DirectoryEntry &operator*() const
        {
            Q_ASSERT(m_walk);
            return *m_walk;
        }
        Iterator &operator++()
        {
            if (!m_walk->next())
                m_walk = nullptr;
            return *this;
        }
        void operator++(int) { ++*this; }
        bool operator==(std::default_sentinel_t) const { return !m_walk; }

    private:
        DirectoryWalk *m_walk;
    };

    Iterator begin() { return Iterator(m_walk && m_walk->next() ? m_walk.get() : nullptr); }
    std::default_sentinel_t end() const { return {}; }

private:
    std::unique_ptr<DirectoryWalk> m_walk;
};

/// The volume that holds a file. Sizes are in bytes; absent is what the system does not tell.
struct VolumeValues
{
    std::optional<QString> name;
    std::optional<qint64> totalCapacity;
    /// What could be made free for something that the user asked for, where the system tells the two apart.
    std::optional<qint64> availableCapacityForImportantUsage;
    /// What an unprivileged user may still write.
    std::optional<qint64> availableCapacity;
    /// Whether nothing on it can be changed, by anybody.
    bool isReadOnly = false;
};

/// What the program asks of files and folders. Nothing here changes a file.
///
/// Safe to call from any thread. Nothing here fails: what cannot be read is missing from the answer, so a scan of
/// a damaged disk still ends. A URL that no file can have (empty, relative, with a byte of value zero) leads to
/// nothing, and so does everything below what is no folder or may not be entered. When the program quits, every
/// enumeration and every walk in progress ends where it stands.
class FileSystem
{
public:
    virtual ~FileSystem() = default;

    /// The current user's home folder, standardised, without a trailing separator.
    virtual Url homeDirectory() const = 0;

    /// Whether something exists at `url`. Links are followed, so a dangling link does not exist.
    virtual bool exists(const Url &url) const = 0;

    /// Whether it is known that nothing exists at `url`; links are followed here as well. What cannot be looked at,
    /// because of missing permissions or a failing disk, neither exists for the program nor is it gone.
    virtual bool isGone(const Url &url) const = 0;

    /// Whether `url` leads to a folder, links followed.
    virtual bool isDirectory(const Url &url) const = 0;

    /// Where `url` leads when every link on the way is followed; absent when nothing is there.
    virtual std::optional<Url> resolved(const Url &url) const = 0;

    /// Whether the current user may execute the file at `url`, links followed; of a folder, whether it may be
    /// entered.
    virtual bool isExecutable(const Url &url) const = 0;

    /// The entries directly inside `folder`, all at level 1, hidden ones (name beginning with ".") left out, in
    /// the file system's own order; nothing when it cannot be listed. `folder` itself may be a link to a folder.
    virtual DirectoryEnumeration contentsOfDirectory(const Url &folder) const = 0;

    /// Looks at the entries of one folder, or at some of a folder with many. Called by several threads at once, in no
    /// order; the part is valid during the call. Folders that it has not passed are not entered.
    using FolderVisitor = std::function<void(FolderPart &part)>;
    /// Whether the one of the folders given to a walk that is at this index is to be entered. Called by several threads
    /// at once.
    using FolderChoice = std::function<bool(size_t folder)>;

    /// Shows everything below those of `folders` that `enters` chooses to several threads at once, as fast as the
    /// computer can; returns when all has been seen. A folder that does not answer holds up itself alone. The threads
    /// have the priority of the calling one, which is one of them.
    ///
    /// Hidden items are left out together with what they hold; packages and links beneath the folders are listed but
    /// not entered; the folders themselves are entered even when they are packages or links to folders. A folder is a
    /// package by its name alone. What cannot be read is passed over. A tree may change while it is walked: the walk
    /// never leaves it.
    virtual void walk(const QList<Url> &folders, const FolderVisitor &visit, const FolderChoice &enters) const = 0;
    void walk(const QList<Url> &folders, const FolderVisitor &visit) const
    {
        walk(folders, visit, [](size_t) { return true; });
    }

    /// Absent when nothing is at `url` or it cannot be read. A link at `url` is described as itself.
    virtual std::optional<ResourceValues> resourceValues(const Url &url) const = 0;

    /// The whole content of the regular file at `url`, links followed; absent when there is none, when it cannot
    /// be read, or when it is larger than `maximumSize` bytes. Never waits for a pipe or a device.
    virtual std::optional<QByteArray> readFile(const Url &url, qint64 maximumSize) const = 0;

    /// Up to `maximumLength` bytes of the regular file at `url` from `offset` on, links followed; fewer where the file
    /// ends earlier, none behind its end; absent when there is no such file, when it cannot be read, or when
    /// `offset` is below zero. Takes memory for what is there, not for what is asked. Never waits for a pipe or a
    /// device.
    virtual std::optional<QByteArray> readFilePart(const Url &url, qint64 offset, qint64 maximumLength) const = 0;

    /// The volume that holds `url`; absent when the system does not answer.
    virtual std::optional<VolumeValues> volumeValues(const Url &url) const = 0;
};
