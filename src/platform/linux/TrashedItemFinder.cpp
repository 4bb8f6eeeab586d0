#include "TrashedItemFinder.h"

#include <cstdlib>
#include <dirent.h>
#include <fstream>
#include <glib.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct CloseFolder
{
    void operator()(DIR *folder) const { closedir(folder); }
};

struct Free
{
    void operator()(char *text) const { std::free(text); }
};

std::optional<QByteArray> realPath(const QByteArray &path)
{
    const std::unique_ptr<char, Free> real(realpath(path.constData(), nullptr));
    return real ? std::optional(QByteArray(real.get())) : std::nullopt;
}

QByteArray folderOf(const QByteArray &path)
{
    const auto slash = path.lastIndexOf('/');
    return slash > 0 ? path.first(slash) : QByteArray("/");
}

QByteArray nameOf(const QByteArray &path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

// The folder that the file system of `folder` is mounted on.
QByteArray mountPoint(QByteArray folder, dev_t device)
{
    struct stat above;
    while (folder != "/" && lstat(folderOf(folder).constData(), &above) == 0 && above.st_dev == device)
        folder = folderOf(folder);
    return folder;
}

// The path in a Trash's record, as it stands there; absent when the record cannot be read.
std::optional<QByteArray> recordedPath(const QByteArray &record)
{
    constexpr size_t mostBytes = 64 * 1024;
    constexpr QByteArrayView key("Path=");
    std::string content(mostBytes, '\0');
    std::ifstream file(record.constData(), std::ios::binary);
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<size_t>(file.gcount()));
    for (const auto &line : QByteArray::fromStdString(content).split('\n')) {
        if (line.startsWith(key))
            return QByteArray::fromPercentEncoding(line.mid(key.size()));
    }
    return std::nullopt;
}

} // namespace

TrashedItemFinder::TrashedItemFinder(const QByteArray &path)
    : m_name(nameOf(path)), m_realFolder(realPath(folderOf(path)))
{
    struct stat item;
    if (lstat(path.constData(), &item) == 0) {
        m_device = item.st_dev;
        m_inode = item.st_ino;
    }
}

std::optional<TrashedItem> TrashedItemFinder::find() const
{
    if (!m_realFolder || m_inode == 0)
        return std::nullopt;
    for (const auto &trash : trashes()) {
        if (auto item = findIn(trash))
            return item;
    }
    return std::nullopt;
}

// The home folder's Trash, and the two places for one on a file system of its own.
QList<TrashedItemFinder::Trash> TrashedItemFinder::trashes() const
{
    const auto top = mountPoint(*m_realFolder, m_device);
    const auto slash = top.endsWith('/') ? top : top + '/';
    const auto user = QByteArray::number(getuid());
    return {
        {homeTrash(), "/"},
        {slash + ".Trash/" + user, top},
        {slash + ".Trash-" + user, top},
    };
}

std::optional<TrashedItem> TrashedItemFinder::findIn(const Trash &trash) const
{
    const auto files = trash.folder + "/files/";
    const auto found = [&](const QByteArray &name) {
        const auto record = trash.folder + "/info/" + name + ".trashinfo";
        return TrashedItem{files + name, record, namesTheItem(record, trash.base)};
    };
    // Nearly always it keeps its name; a full Trash is searched only for one that had to get another.
    if (isTheItem(files + m_name))
        return found(m_name);

    const std::unique_ptr<DIR, CloseFolder> listing(opendir(files.constData()));
    while (const auto *entry = listing ? readdir(listing.get()) : nullptr) {
        if (const QByteArray name(entry->d_name); isTheItem(files + name))
            return found(name);
    }
    return std::nullopt;
}

bool TrashedItemFinder::isTheItem(const QByteArray &path) const
{
    struct stat item;
    return lstat(path.constData(), &item) == 0 && item.st_dev == m_device && item.st_ino == m_inode;
}

bool TrashedItemFinder::namesTheItem(const QByteArray &record, const QByteArray &base) const
{
    const auto recorded = recordedPath(record);
    if (!recorded)
        return false;
    const auto path = recorded->startsWith('/') ? *recorded : base + '/' + *recorded;
    return nameOf(path) == m_name && realPath(folderOf(path)) == m_realFolder;
}

QByteArray homeTrash()
{
    return QByteArray(g_get_user_data_dir()) + "/Trash";
}
