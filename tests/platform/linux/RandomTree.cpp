#include "RandomTree.h"

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int deepestLevel = 200;

constexpr const char *packageNames[] = {"Some.app", "Pictures.PhotosLibrary", "part.plugin"};

bool isPackage(const QByteArray &name)
{
    return std::ranges::any_of(packageNames, [&](const char *package) { return name.endsWith(package); });
}

FileType typeOf(mode_t mode)
{
    return S_ISREG(mode)   ? FileType::regular
           : S_ISDIR(mode) ? FileType::directory
           : S_ISLNK(mode) ? FileType::symbolicLink
                           : FileType::other;
}

void collect(int folder, const QByteArray &path, std::vector<RandomTree::Entry> &entries)
{
    auto *const listing = fdopendir(folder);
    while (const auto *listed = readdir(listing)) {
        const QByteArray name = listed->d_name;
        if (name.startsWith('.'))
            continue;
        struct stat status;
        fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW);
        entries.push_back({path + '/' + name, typeOf(status.st_mode), status.st_blocks * 512});
        if (S_ISDIR(status.st_mode) && !isPackage(name))
            collect(openat(folder, name.constData(), O_RDONLY | O_DIRECTORY), path + '/' + name, entries);
    }
    closedir(listing);
}

} // namespace

RandomTree::RandomTree(const TemporaryDisk &disk, const Url &top, unsigned variation)
    : m_disk(disk), m_top(disk.folder(top.path())), m_random(variation)
{
    const int folder = open(disk.host(top.path()).c_str(), O_RDONLY | O_DIRECTORY);
    for (int branch = number(2); branch >= 0; --branch)
        fill(folder, number(deepestLevel - 1));
    close(folder);
}

std::vector<RandomTree::Entry> RandomTree::walked() const
{
    std::vector<Entry> entries;
    collect(open(m_disk.host(m_top.path()).c_str(), O_RDONLY | O_DIRECTORY), m_top.path(), entries);
    return entries;
}

/// Makes items in `folder` and a way down that goes on for so many levels.
void RandomTree::fill(int folder, int levelsLeft)
{
    addFiles(folder);
    if (levelsLeft == 0)
        return;
    // Now and then a folder of many folders, now and then a second way down.
    for (int siblings = number(9) == 0 ? number(12) : number(1); siblings >= 0; --siblings) {
        const auto name = newName();
        if (mkdirat(folder, name.constData(), 0755) != 0)
            continue;
        const int child = openat(folder, name.constData(), O_RDONLY | O_DIRECTORY);
        fill(child, siblings == 0 ? levelsLeft - 1 : number(150) == 0 ? levelsLeft / 2 : 0);
        close(child);
    }
}

void RandomTree::addFiles(int folder)
{
    // A folder whose listing takes more than one call, once in a while.
    for (int files = number(700) == 0 ? 2000 : number(3); files > 0; --files) {
        const auto name = newName();
        switch (number(9)) {
        case 0:
            symlinkat(number(1) == 0 ? ".." : "nowhere", folder, name.constData());
            break;
        case 1:
            mkfifoat(folder, name.constData(), 0644);
            break;
        default:
            const int file = openat(folder, name.constData(), O_CREAT | O_EXCL | O_WRONLY, 0644);
            if (file >= 0 && number(4) == 0)
                posix_fallocate(file, 0, 1);
            close(file);
        }
    }
}

QByteArray RandomTree::newName()
{
    // Short, so that the deepest path is one that the kernel takes. Never the names that lead elsewhere.
    QByteArray name;
    for (int length = number(6) + 1; length > 0; --length) {
        const auto byte = static_cast<char>(number(254) + 1);
        name.append(byte == '/' ? '_' : byte);
    }
    switch (number(15)) {
    case 0:
        return '.' + name + '.';
    case 1:
        return name + packageNames[number(std::size(packageNames) - 1)];
    default:
        return name.startsWith('.') ? '_' + name : name;
    }
}
