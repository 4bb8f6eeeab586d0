#pragma once

#include "FileDescriptor.h"
#include "FileSystem.h"

#include <QByteArray>

#include <dirent.h>
#include <stop_token>
#include <sys/types.h>
#include <vector>

/// A walk on directory descriptors: no path is looked up while it goes on, so none can lead elsewhere meanwhile.
/// At most 32 folders are open, whatever the depth; a folder that was closed for that is opened again only as the
/// very folder it was. Nothing is allocated for an entry. Used by one thread at a time.
class LinuxDirectoryWalk final : public DirectoryWalk
{
public:
    enum class Depth { children, descendants };

    /// Which folder of which file system; no folder's where both are 0.
    struct Identity
    {
        dev_t device = 0;
        ino_t inode = 0;
        bool operator==(const Identity &) const = default;
    };

    /// Walks the open directory `folder`, known as `url`. Ends where it stands when `stop` is requested.
    LinuxDirectoryWalk(FileDescriptor folder, const Url &url, Depth depth, std::stop_token stop);

    bool next() override;

    QByteArrayView name() const override { return m_name; }
    FileType type() const override { return m_type; }
    int level() const override { return static_cast<int>(m_depth); }
    Url url() const override;
    std::optional<ResourceValues> resourceValues() const override;
    void skipDescendants() override { m_entersCurrent = false; }

private:
    struct Folder
    {
        FileDescriptor descriptor;
        /// Where the folder's own path ends in `m_path`.
        qsizetype pathSize = 0;
        /// Entries as the kernel wrote them; those from `next` to `end` are still to come.
        std::vector<char> listing = {};
        size_t next = 0;
        size_t end = 0;
        /// Nothing is to come but what the listing holds.
        bool isReadToItsEnd = false;
        /// Known once the folder has been closed to make room.
        Identity identity = {};
    };

    const dirent64 *nextListed();
    bool readListing(Folder &folder);
    bool describe(const dirent64 &listed);

    void enterCurrent();
    void push(FileDescriptor descriptor);
    void leave();

    void makeRoom();
    bool reopen(size_t index, const FileDescriptor &child);
    FileDescriptor openedFromTop(size_t index) const;

    Folder &folder() { return m_folders[m_depth - 1]; }
    const Folder &folder() const { return m_folders[m_depth - 1]; }

    /// From the enumerated folder down to the one being listed; those from `m_depth` on have been left.
    std::vector<Folder> m_folders;
    size_t m_depth = 0;
    /// Open are the enumerated folder and those from this index on.
    size_t m_firstOpen = 1;
    /// Memory of listings that have been read.
    std::vector<std::vector<char>> m_spareListings;
    /// The path of the folder being listed; empty for the root.
    QByteArray m_path;
    const Depth m_maximumDepth;
    const std::stop_token m_stop;

    /// The element at which the walk stands.
    QByteArrayView m_name;
    FileType m_type = FileType::other;
    bool m_entersCurrent = false;
};
