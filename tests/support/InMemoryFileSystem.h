#pragma once

#include "FileSystem.h"

#include <QList>

#include <memory>
#include <stop_token>
#include <utility>
#include <vector>

/// A disk in memory that keeps the contract of `FileSystem`, for testing rules: exact sizes, faults, names of any
/// bytes. It may be read from several threads, but built and changed only while nobody reads.
///
/// A path is absolute or begins with "~" for the home folder "/Users/me". Folders above an item are made as
/// needed; a listing gives the entries in the order in which they were made. What makes an item answers where it
/// is.
class InMemoryFileSystem : public FileSystem
{
    struct Node;
    using NodePointer = std::shared_ptr<Node>;

    struct Node
    {
        ResourceValues values{};
        QByteArray content = {};
        QByteArray linkTarget = {};
        bool isExecutable = false;
        bool isReadable = true;
        bool isGone = false;

        QByteArray name = {};
        std::weak_ptr<Node> parent = {};
        std::vector<NodePointer> children = {};
    };

public:
    InMemoryFileSystem();

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
    void makeUnreadable(const QByteArray &path) { node(path)->isReadable = false; }
    /// The item is still listed, but gone when it is looked at.
    void makeVanishing(const QByteArray &path) { node(path)->isGone = true; }
    /// The item was last changed at `time`.
    void touch(const QByteArray &path, qint64 time) { node(path)->values.modificationTime = time; }
    /// The item may be there or not: it can no longer be looked at.
    void hide(const Url &item)
    {
        remove(item.path());
        m_outOfSight.append(item);
    }
    void remove(const QByteArray &path);
    /// Every enumeration and every walk, begun or not, ends where it stands when `stop` is requested.
    void stopWith(std::stop_token stop) { m_stop = std::move(stop); }
    void setVolume(const std::optional<VolumeValues> &values) { m_volume = values; }

    Url homeDirectory() const override { return Url("/Users/me"); }
    bool exists(const Url &url) const override { return find(url, LastLink::followed) != nullptr; }
    bool isGone(const Url &url) const override;
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
    /// Who builds the disk gets everywhere, who uses it does not.
    enum class Rights { ofTheUser, ofTheBuilder };

    /// Makes the item, or gives the one that is there other values.
    Url put(const QByteArray &path, Node item);
    struct LookUp
    {
        NodePointer item = nullptr;
        /// Where there is no item: whether that is known, or only that one cannot get there.
        bool isCertain = true;
    };
    LookUp lookUp(const Url &url, LastLink lastLink, Rights rights) const;
    NodePointer find(const Url &url, LastLink lastLink) const
    {
        return lookUp(url, lastLink, Rights::ofTheUser).item;
    }
    NodePointer node(const QByteArray &path) const
    {
        return lookUp(url(path), LastLink::kept, Rights::ofTheBuilder).item;
    }
    static bool isPlainFolder(const Node &node);
    static NodePointer child(const Node &folder, const QByteArray &name);

    NodePointer m_root = std::make_shared<Node>(Node{.values = {FileType::directory, {}, {}}});
    std::optional<VolumeValues> m_volume;
    QList<Url> m_outOfSight;
    std::stop_token m_stop;
};
