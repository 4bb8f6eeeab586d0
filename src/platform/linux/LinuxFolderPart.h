#pragma once

#include "WalkedFolder.h"

#include <span>
#include <stop_token>

/// Entries of an open folder as the kernel listed them. Nothing is allocated for an entry. Used by one thread.
class LinuxFolderPart final : public FolderPart
{
public:
    /// `listing` is what was read after `offset` bytes of the folder's listing. Ends where it stands when `stop` is
    /// requested.
    LinuxFolderPart(const WalkedFolder::Pointer &folder, const FileDescriptor &descriptor,
                    std::span<const char> listing, quint64 offset, const std::stop_token &stop)
        : m_folder(folder), m_descriptor(descriptor), m_listing(listing), m_offset(offset), m_stop(stop)
    {
    }

    bool next() override;
    QByteArrayView name() const override { return m_name; }
    FileType type() const override { return m_type; }
    int level() const override { return m_folder->level + 1; }
    Url url() const override { return Url(m_folder->pathOf(m_name)); }
    std::optional<ResourceValues> resourceValues() const override;
    void skipDescendants() override { m_entersCurrent = false; }
    size_t walkedFolder() const override { return m_folder->rootIndex(); }
    WalkPlace place() const override { return m_folder->placeOf(m_index); }

    /// The folders that have been passed and are to be entered.
    std::vector<WalkedFolder::Pointer> takeFolders() { return std::move(m_folders); }

private:
    bool describe(const dirent64 &listed);

    const WalkedFolder::Pointer &m_folder;
    const FileDescriptor &m_descriptor;
    const std::span<const char> m_listing;
    const quint64 m_offset;
    const std::stop_token &m_stop;
    size_t m_next = 0;
    std::vector<WalkedFolder::Pointer> m_folders;

    /// The element at which it stands.
    QByteArrayView m_name;
    quint32 m_index = 0;
    FileType m_type = FileType::other;
    bool m_entersCurrent = false;
};
