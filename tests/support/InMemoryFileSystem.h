#pragma once

#include "FileSystem.h"

#include <QByteArrayList>

#include <map>

/// A disk in memory that keeps the contract of `FileSystem`, for testing rules: exact sizes, faults, names of any
/// bytes. It may be read from several threads, but built and changed only while nobody reads.
///
/// A path is absolute or begins with "~" for the home folder "/Users/me". Folders above an item are made as
/// needed; a listing gives the entries in the order in which they were made. What makes an item answers where it
/// is.
class InMemoryFileSystem : public FileSystem
{
    struct Item
    {
        ResourceValues values{};
        QByteArray content = {};
        QByteArray linkTarget = {};
        bool isExecutable = false;
        bool isReadable = true;
        bool isGone = false;
        /// The names in a folder.
        QByteArrayList children = {};
    };
    /// By their paths; that of the root is empty.
    using Items = std::map<QByteArray, Item>;

public:
    InMemoryFileSystem() { folder("~"); }

    Url url(const QByteArray &path) const
    {
        return path.startsWith('~') ? Url(homeDirectory().path() + path.mid(1)) : Url(path);
    }

    // A folder's own size must never be counted, so there is one to be counted wrongly.
    Url folder(const QByteArray &path) { return put(path, {.values = {FileType::directory, 4096, {}}}); }
    /// A regular file with these sizes in bytes; absent is what the file system does not tell.
    Url file(const QByteArray &path, std::optional<qint64> totalAllocatedSize = 4096,
             std::optional<qint64> allocatedSize = std::nullopt)
    {
        return put(path, {.values = {FileType::regular, totalAllocatedSize, allocatedSize}});
    }
    /// A regular file that can be read; it occupies as many bytes as it holds.
    Url fileWithContent(const QByteArray &path, const QByteArray &content)
    {
        return put(path, {.values = {FileType::regular, content.size(), {}}, .content = content});
    }
    Url executable(const QByteArray &path)
    {
        return put(path, {.values = {FileType::regular, 4096, {}}, .isExecutable = true});
    }
    /// A link that occupies 1 byte; `target` may be relative to the link's folder.
    Url link(const QByteArray &path, const QByteArray &target)
    {
        return put(path, {.values = {FileType::symbolicLink, 1, {}}, .linkTarget = url(target).path()});
    }
    /// Neither a file nor a folder nor a link.
    Url device(const QByteArray &path) { return put(path, {.values = {FileType::other, 4096, {}}}); }

    /// The folder can no longer be listed or entered; the file can no longer be read.
    void makeUnreadable(const QByteArray &path) { item(path).isReadable = false; }
    /// The item is still listed, but gone when it is looked at.
    void makeVanishing(const QByteArray &path) { item(path).isGone = true; }
    /// The item was last changed at `time`.
    void touch(const QByteArray &path, qint64 time) { item(path).values.modificationTime = time; }
    void remove(const QByteArray &path);
    void setVolume(const std::optional<VolumeValues> &values) { m_volume = values; }

    Url homeDirectory() const override { return Url("/Users/me"); }
    bool exists(const Url &url) const override { return lookUp(url).item; }
    bool isGone(const Url &url) const override
    {
        const auto found = lookUp(url);
        return !found.item && found.isCertain;
    }
    bool isDirectory(const Url &url) const override;
    std::optional<Url> resolved(const Url &url) const override;
    bool isExecutable(const Url &url) const override;
    DirectoryEnumeration contentsOfDirectory(const Url &folder) const override;
    using FileSystem::walk;
    void walk(const QList<Url> &folders, const FolderVisitor &visit, const FolderChoice &enters) const override;
    std::optional<ResourceValues> resourceValues(const Url &url) const override;
    std::optional<QByteArray> readFile(const Url &url, qint64 maximumSize) const override;
    std::optional<QByteArray> readFilePart(const Url &url, qint64 offset, qint64 maximumLength) const override;
    std::optional<VolumeValues> volumeValues(const Url &url) const override
    {
        return exists(url) ? m_volume : std::nullopt;
    }

private:
    class Part;
    enum class LastLink { kept, followed };
    struct LookUp
    {
        const Items::value_type *item = nullptr;
        /// Where there is no item: whether that is known, or only that one cannot get there.
        bool isCertain = true;
    };
    LookUp lookUp(const Url &url, LastLink lastLink = LastLink::followed) const;
    Item &item(const QByteArray &path) { return m_items.at(lookUp(url(path), LastLink::kept).item->first); }
    /// Makes the item, or gives the one that is there other values.
    Url put(const QByteArray &path, Item item);

    Items m_items{{"", {.values = {FileType::directory, {}, {}}}}};
    std::optional<VolumeValues> m_volume;
};
