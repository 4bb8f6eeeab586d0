#include "LinuxFolderListing.h"

LinuxFolderListing::LinuxFolderListing(FileDescriptor folder, const Url &url, std::stop_token stop)
    : m_descriptor(std::move(folder)), m_folder(new WalkedFolder(url, 0)), m_stop(std::move(stop)),
      m_listing(std::make_unique_for_overwrite<char[]>(listingSize))
{
}

bool LinuxFolderListing::next()
{
    do {
        if (m_part && m_part->next()) {
            m_part->skipDescendants();
            return true;
        }
    } while (readOn());
    return false;
}

/// Whether more was there to be read.
bool LinuxFolderListing::readOn()
{
    if (m_stop.stop_requested())
        return false;
    const auto size = readListing(m_descriptor, m_listing.get(), listingSize);
    m_part.emplace(m_folder, m_descriptor, std::span<const char>(m_listing.get(), size), 0, m_stop);
    return size > 0;
}
