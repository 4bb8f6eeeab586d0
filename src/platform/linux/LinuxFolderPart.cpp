#include "LinuxFolderPart.h"

#include "FileStatus.h"
#include "Packages.h"

#include <cstring>

bool LinuxFolderPart::next()
{
    if (std::exchange(m_entersCurrent, false))
        m_folders.emplace_back(new WalkedFolder(m_folder, m_name.toByteArray(), m_index));
    while (m_next < m_listing.size() && !m_stop.stop_requested()) {
        const auto *listed = reinterpret_cast<const dirent64 *>(m_listing.data() + m_next);
        // Entries are aligned to eight bytes: what they begin at tells their order.
        m_index = static_cast<quint32>((m_offset + m_next) / 8);
        m_next += listed->d_reclen;
        if (describe(*listed))
            return true;
    }
    return false;
}

std::optional<ResourceValues> LinuxFolderPart::resourceValues() const
{
    const auto status = statusOf(m_descriptor, m_name.data());
    return status ? std::optional(resourceValuesOf(*status)) : std::nullopt;
}

/// Makes `listed` the element at which the part stands; false when it is none.
bool LinuxFolderPart::describe(const dirent64 &listed)
{
    const auto *name = nameOf(listed);
    if (*name == '.')
        return false;
    auto type = typeOf(listed);
    if (!type) {
        const auto status = statusOf(m_descriptor, name);
        if (!status)
            return false;
        type = fileTypeOf(status->st_mode);
    }
    m_name = QByteArrayView(name, static_cast<qsizetype>(std::strlen(name)));
    m_type = *type;
    m_entersCurrent = m_type == FileType::directory && !isPackageName(m_name);
    return true;
}
