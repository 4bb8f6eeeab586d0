#include "Url.h"

#include <QList>

#include <algorithm>
#include <utility>

namespace {

bool isUnreserved(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.'
           || c == '_' || c == '~';
}

} // namespace

Url::Url(QByteArray path) : m_path(std::move(path))
{
    while (m_path.size() > 1 && m_path.endsWith('/'))
        m_path.chop(1);
}

std::optional<Url> Url::fromUri(QByteArrayView uri)
{
    constexpr QByteArrayView scheme("file:");
    if (uri.size() < scheme.size() || QByteArray::fromRawData(uri.data(), scheme.size()).toLower() != scheme)
        return std::nullopt;
    auto rest = uri.sliced(scheme.size());
    if (rest.startsWith("//")) {
        rest = rest.sliced(2);
        const auto slash = rest.indexOf('/');
        if (slash < 0)
            return std::nullopt;
        const auto host = rest.first(slash).toByteArray().toLower();
        if (!host.isEmpty() && host != "localhost")
            return std::nullopt;
        rest = rest.sliced(slash);
    }
    const auto path = QByteArray::fromPercentEncoding(rest.toByteArray());
    if (!path.startsWith('/') || path.contains('\0'))
        return std::nullopt;
    return Url(path);
}

QByteArray Url::toUri() const
{
    constexpr char digits[] = "0123456789ABCDEF";
    QByteArray uri("file://");
    for (const char c : m_path) {
        if (isUnreserved(c) || c == '/') {
            uri += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            uri += '%';
            uri += digits[byte >> 4];
            uri += digits[byte & 15];
        }
    }
    return uri;
}

QByteArray Url::standardizedPath() const
{
    QList<QByteArrayView> components;
    for (qsizetype start = 0; start < m_path.size();) {
        auto end = m_path.indexOf('/', start);
        if (end < 0)
            end = m_path.size();
        const auto component = QByteArrayView(m_path).sliced(start, end - start);
        if (component == "..") {
            if (!components.isEmpty())
                components.removeLast();
        } else if (!component.isEmpty() && component != ".") {
            components.append(component);
        }
        start = end + 1;
    }
    QByteArray path;
    path.reserve(m_path.size());
    for (const auto component : components)
        path.append('/').append(component);
    return path.isEmpty() && !m_path.isEmpty() ? QByteArray("/") : path;
}

QByteArray Url::lastPathComponent() const
{
    return m_path == "/" ? m_path : m_path.mid(m_path.lastIndexOf('/') + 1);
}

QByteArray Url::pathExtension() const
{
    const auto name = lastPathComponent();
    return extensionOf(name).toByteArray();
}

QByteArray Url::nameWithoutExtension() const
{
    auto name = lastPathComponent();
    const auto extension = extensionOf(name).size();
    return extension > 0 ? name.first(name.size() - extension - 1) : name;
}

Url Url::parent() const
{
    const auto slash = m_path.lastIndexOf('/');
    return Url(slash > 0 ? m_path.first(slash) : QByteArray("/"));
}

Url operator/(const Url &folder, QByteArrayView name)
{
    QByteArray path;
    path.reserve(folder.m_path.size() + 1 + name.size());
    path.append(folder.m_path);
    if (!path.endsWith('/'))
        path.append('/');
    return Url(path.append(name));
}

QByteArrayView extensionOf(QByteArrayView name)
{
    const auto dot = name.lastIndexOf('.');
    if (dot < 0)
        return {};
    const bool onlyDotsBefore = std::all_of(name.begin(), name.begin() + dot, [](char c) { return c == '.'; });
    return onlyDotsBefore ? QByteArrayView() : name.sliced(dot + 1);
}
