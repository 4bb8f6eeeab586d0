#pragma once

#include "FileSystem.h"
#include "TemporaryDisk.h"

#include <algorithm>
#include <fcntl.h>
#include <iterator>
#include <random>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

/// A tree that a number decides: branches down to 200 levels with folders of siblings along the way, hidden items,
/// packages, links, pipes, and names of any bytes.
class RandomTree
{
    using Path = std::filesystem::path;

public:
    /// What a walk tells of an entry.
    struct Entry
    {
        QByteArray path;
        FileType type;
        qint64 size;
        bool operator==(const Entry &) const = default;
    };

    /// Made at `top` on the disk, where nothing is yet.
    RandomTree(const TemporaryDisk &disk, const QByteArray &top, unsigned variation)
        : m_disk(disk), m_top(disk.folder(top)), m_random(variation)
    {
        for (int branch = number(2); branch >= 0; --branch)
            fill(disk.host(top), number(199));
    }

    const Url &top() const { return m_top; }

    /// What is below a folder, as a function that calls itself sees it.
    std::vector<Entry> walked(const QByteArray &folder) const
    {
        std::vector<Entry> entries;
        for (const auto &listed : std::filesystem::directory_iterator(m_disk.host(folder))) {
            const auto name = QByteArray::fromStdString(listed.path().filename());
            if (name.startsWith('.'))
                continue;
            struct stat status;
            lstat(listed.path().c_str(), &status);
            entries.push_back({folder + '/' + name, typeOf(status.st_mode), status.st_blocks * 512});
            if (S_ISDIR(status.st_mode) && !name.endsWith(packageExtension))
                std::ranges::move(walked(folder + '/' + name), std::back_inserter(entries));
        }
        return entries;
    }

private:
    static FileType typeOf(mode_t mode)
    {
        return S_ISREG(mode)   ? FileType::regular
               : S_ISDIR(mode) ? FileType::directory
               : S_ISLNK(mode) ? FileType::symbolicLink
                               : FileType::other;
    }

    /// Makes items in `folder` and a way down that goes on for so many levels.
    void fill(const Path &folder, int levelsLeft)
    {
        // A folder whose listing takes more than one call, once in a while.
        for (int items = number(700) == 0 ? 2000 : number(3); items > 0; --items)
            addItem(folder / newName());
        if (levelsLeft == 0)
            return;
        // Now and then a folder of many folders, now and then a second way down.
        for (int siblings = number(9) == 0 ? number(12) : number(1); siblings >= 0; --siblings) {
            const auto child = folder / newName();
            if (mkdir(child.c_str(), 0755) == 0)
                fill(child, siblings == 0 ? levelsLeft - 1 : number(150) == 0 ? levelsLeft / 2 : 0);
        }
    }

    void addItem(const Path &path)
    {
        switch (number(9)) {
        case 0:
            symlink(number(1) == 0 ? ".." : "nowhere", path.c_str());
            break;
        case 1:
            mkfifo(path.c_str(), 0644);
            break;
        default:
            const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY, 0644);
            if (file >= 0 && number(4) == 0)
                posix_fallocate(file, 0, 1);
            close(file);
        }
    }

    /// Short, so that the deepest path is one that the kernel takes. Never one of those that lead elsewhere.
    std::string newName()
    {
        std::string name;
        for (int length = number(6) + 1; length > 0; --length) {
            const auto byte = static_cast<char>(number(254) + 1);
            name += byte == '/' ? '_' : byte;
        }
        switch (number(15)) {
        case 0:
            return '.' + name + '.';
        case 1:
            return name + packageExtension;
        default:
            return name.starts_with('.') ? '_' + name : name;
        }
    }

    int number(int most) { return std::uniform_int_distribution(0, most)(m_random); }

    static constexpr auto packageExtension = ".Plugin";

    const TemporaryDisk &m_disk;
    const Url m_top;
    std::mt19937 m_random;
};
