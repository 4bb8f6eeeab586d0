#pragma once

#include "LinuxFolderPart.h"

#include <memory>
#include <optional>

/// What lies directly inside one folder, read from the kernel as it is asked for. Used by one thread.
class LinuxFolderListing final : public DirectoryWalk
{
public:
    /// Lists the open directory `folder`, known as `url`. Ends where it stands when `stop` is requested.
    LinuxFolderListing(FileDescriptor folder, const Url &url, std::stop_token stop);

    bool next() override;

    QByteArrayView name() const override { return m_part->name(); }
    FileType type() const override { return m_part->type(); }
    int level() const override { return m_part->level(); }
    Url url() const override { return m_part->url(); }
    std::optional<ResourceValues> resourceValues() const override { return m_part->resourceValues(); }
    void skipDescendants() override { }

private:
    static constexpr size_t listingSize = 32 * 1024;

    bool readOn();

    const FileDescriptor m_descriptor;
    const WalkedFolder::Pointer m_folder;
    const std::stop_token m_stop;
    /// Aligned for what the kernel writes.
    const std::unique_ptr<char[]> m_listing;
    /// Of what has been read last.
    std::optional<LinuxFolderPart> m_part;
};
