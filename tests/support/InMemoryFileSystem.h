#pragma once

#include "FileSystem.h"

#include <memory>

/// A disk in memory that keeps the contract of `FileSystem`, for testing rules: exact sizes, faults, names of any
/// bytes. It may be read from several threads, but built and changed only while nobody reads.
///
/// A path is absolute or begins with "~" for the home folder "/Users/me". Folders above an item are made as
/// needed; a listing gives the entries in the order in which they were made. What makes an item answers where it
/// is.
class InMemoryFileSystem : public FileSystem
{
public:
    InMemoryFileSystem();
    ~InMemoryFileSystem() override;

    Url url(const QByteArray &path) const;

    Url folder(const QByteArray &path);
    /// A regular file with these sizes in bytes; absent is what the file system does not tell.
    Url file(const QByteArray &path, std::optional<qint64> totalAllocatedSize = 4096,
             std::optional<qint64> allocatedSize = std::nullopt);
    /// A regular file that can be read; it occupies as many bytes as it holds.
    Url fileWithContent(const QByteArray &path, const QByteArray &content);
    Url executable(const QByteArray &path);
    /// A link that occupies 1 byte; `target` may be relative to the link's folder.
    Url link(const QByteArray &path, const QByteArray &target);
    /// Neither a file nor a folder nor a link.
    Url device(const QByteArray &path);

    /// The folder can no longer be listed; the file can no longer be read.
    void makeUnreadable(const QByteArray &path);
    /// The item is still listed, but gone when it is looked at.
    void makeVanishing(const QByteArray &path);
    /// The item is listed twice, as in a folder that changes while it is listed.
    void makeListedTwice(const QByteArray &path);
    void remove(const QByteArray &path);
    void setVolume(const std::optional<VolumeValues> &values) { m_volume = values; }

    Url homeDirectory() const override;
    bool exists(const Url &url) const override;
    bool isDirectory(const Url &url) const override;
    bool isExecutable(const Url &url) const override;
    DirectoryEnumeration contentsOfDirectory(const Url &folder) const override;
    DirectoryEnumeration enumerate(const Url &folder) const override;
    std::optional<ResourceValues> resourceValues(const Url &url) const override;
    std::optional<QByteArray> readFile(const Url &url, qint64 maximumSize) const override;
    std::optional<QByteArray> readFilePart(const Url &url, qint64 offset, qint64 maximumLength) const override;
    std::optional<VolumeValues> volumeValues(const Url &url) const override;

private:
    struct Node;
    class Walk;
    enum class LastLink { kept, followed };

    std::shared_ptr<Node> make(const QByteArray &path, FileType type);
    std::shared_ptr<Node> find(const Url &url, LastLink lastLink) const;
    std::optional<QByteArray> contentOf(const Url &url) const;

    std::shared_ptr<Node> m_root;
    std::optional<VolumeValues> m_volume;
};
