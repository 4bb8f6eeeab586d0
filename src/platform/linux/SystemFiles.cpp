#include "SystemFiles.h"

#include "RegularFile.h"

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <utility>

namespace {

constexpr qint64 longestFile = 64 * 1024;
constexpr qsizetype mostNames = 256;

} // namespace

SystemFiles::SystemFiles(QByteArray root) : m_root(std::move(root)) { }

std::optional<QByteArray> SystemFiles::read(const QByteArray &path) const
{
    return readPart(openRegularFile(DiskRoot(), Url(m_root + path)), 0, longestFile);
}

std::optional<QString> SystemFiles::line(const QByteArray &path) const
{
    const auto content = read(path);
    if (!content)
        return std::nullopt;
    constexpr auto isEnd = [](char byte) { return byte == '\n' || byte == '\0'; };
    const auto *end = std::find_if(content->begin(), content->end(), isEnd);
    const auto text = QString::fromUtf8(content->first(end - content->begin())).trimmed();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

std::optional<qint64> SystemFiles::number(const QByteArray &path) const
{
    bool isNumber = false;
    const auto value = line(path).value_or(QString()).toLongLong(&isNumber);
    return isNumber ? std::optional<qint64>(value) : std::nullopt;
}

QList<QByteArray> SystemFiles::names(const QByteArray &folder) const
{
    const auto path = m_root + folder;
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(path.constData()), &::closedir);
    QList<QByteArray> names;
    while (directory && names.size() < mostNames) {
        const auto *entry = ::readdir(directory.get());
        if (!entry)
            break;
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..")
            names.append(name);
    }
    std::ranges::sort(names);
    return names;
}
