#include "DiskRoot.h"

#include <utility>

DiskRoot::DiskRoot(QByteArray prefix) : m_prefix(std::move(prefix))
{
    while (m_prefix.endsWith('/'))
        m_prefix.chop(1);
}

QByteArray DiskRoot::hostPath(const Url &url) const
{
    const auto &path = url.path();
    if (!path.startsWith('/') || path.contains('\0'))
        return {};
    if (m_prefix.isEmpty())
        return path;
    const auto inside = path.contains("..") ? url.standardizedPath() : path;
    return inside == "/" ? m_prefix : m_prefix + inside;
}

std::optional<Url> DiskRoot::urlFor(const QByteArray &hostPath) const
{
    // "PREFIX/../elsewhere" begins like the disk and is outside of it.
    const auto path = m_prefix.isEmpty() ? hostPath : Url(hostPath).standardizedPath();
    if (!hostPath.startsWith('/') || !path.startsWith(m_prefix))
        return std::nullopt;
    const auto inside = path.sliced(m_prefix.size());
    if (inside.isEmpty())
        return Url("/");
    return inside.startsWith('/') ? std::optional(Url(inside)) : std::nullopt;
}
