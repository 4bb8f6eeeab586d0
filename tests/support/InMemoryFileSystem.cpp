#include "InMemoryFileSystem.h"

#include "Packages.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

// As of nearly every file system.
static constexpr qsizetype longestName = 255;

static QByteArray parentOf(const QByteArray &path)
{
    return path.first(std::max<qsizetype>(path.lastIndexOf('/'), 0));
}

/// What a folder holds, and where it comes.
class InMemoryFileSystem::Part : public FolderPart
{
public:
    Part(const Items &items, const Url &folder, const Items::value_type &item, WalkPlace place)
        : m_items(&items), m_folder(folder), m_path(item.first), m_place(std::move(place))
    {
        if (item.second.isReadable)
            m_names = item.second.children;
    }

    bool next() override
    {
        if (std::exchange(m_entersCurrent, false))
            m_found.emplace_back(*m_items, url(), *m_current, place());
        do {
            if (m_next == m_names.size())
                return false;
            m_current = &*m_items->find(m_path + '/' + m_names[m_next++]);
        } while (name().startsWith('.'));
        m_entersCurrent = type() == FileType::directory && !isPackageName(name());
        return true;
    }

    QByteArrayView name() const override { return m_names[m_next - 1]; }
    FileType type() const override { return m_current->second.values.type; }
    int level() const override { return static_cast<int>(m_place.size()); }
    Url url() const override { return m_folder / m_names[m_next - 1]; }
    std::optional<ResourceValues> resourceValues() const override
    {
        return m_current->second.isGone ? std::nullopt : std::optional(m_current->second.values);
    }
    void skipDescendants() override { m_entersCurrent = false; }
    size_t walkedFolder() const override { return m_place.front(); }
    WalkPlace place() const override
    {
        auto place = m_place;
        place.push_back(static_cast<quint32>(m_next));
        return place;
    }

    std::vector<Part> takeFound() { return std::move(m_found); }

private:
    const Items *m_items;
    Url m_folder;
    QByteArray m_path;
    WalkPlace m_place;
    QByteArrayList m_names;
    qsizetype m_next = 0;
    const Items::value_type *m_current = nullptr;
    bool m_entersCurrent = false;
    std::vector<Part> m_found;
};

void InMemoryFileSystem::remove(const QByteArray &path)
{
    const auto *item = lookUp(url(path), LastLink::kept).item;
    if (!item)
        return;
    const auto where = item->first;
    m_items.at(parentOf(where)).children.removeOne(Url(where).lastPathComponent());
    m_items.erase(where);
    m_items.erase(m_items.lower_bound(where + '/'), m_items.lower_bound(where + char('/' + 1)));
}

bool InMemoryFileSystem::isDirectory(const Url &url) const
{
    const auto *item = lookUp(url).item;
    return item && item->second.values.type == FileType::directory;
}

std::optional<Url> InMemoryFileSystem::resolved(const Url &url) const
{
    const auto *item = lookUp(url).item;
    return item ? std::optional(Url(item->first.isEmpty() ? "/" : item->first)) : std::nullopt;
}

bool InMemoryFileSystem::isExecutable(const Url &url) const
{
    const auto *item = lookUp(url).item;
    return item && (isDirectory(url) ? item->second.isReadable : item->second.isExecutable);
}

DirectoryEnumeration InMemoryFileSystem::contentsOfDirectory(const Url &folder) const
{
    const auto *item = lookUp(folder).item;
    return item ? DirectoryEnumeration(std::make_unique<Part>(m_items, folder, *item, WalkPlace{0}))
                : DirectoryEnumeration();
}

void InMemoryFileSystem::walk(const QList<Url> &folders, const FolderVisitor &visit,
                              const FolderChoice &enters) const
{
    std::vector<Part> parts;
    for (quint32 index = 0; const auto &folder : folders) {
        if (const auto *item = enters(index) ? lookUp(folder).item : nullptr)
            parts.emplace_back(m_items, folder, *item, WalkPlace{index});
        ++index;
    }
    // Whatever order and threads can do to a visitor: the last ones first, by two threads.
    std::mutex mutex;
    const auto work = [&] {
        for (std::unique_lock lock(mutex); !parts.empty();) {
            auto part = std::move(parts.back());
            parts.pop_back();
            lock.unlock();
            visit(part);
            lock.lock();
            std::ranges::move(part.takeFound(), std::back_inserter(parts));
        }
    };
    while (!parts.empty()) {
        std::jthread other(work);
        work();
    }
}

std::optional<ResourceValues> InMemoryFileSystem::resourceValues(const Url &url) const
{
    const auto *item = lookUp(url, LastLink::kept).item;
    return item ? std::optional(item->second.values) : std::nullopt;
}

std::optional<QByteArray> InMemoryFileSystem::readFile(const Url &url, qint64 maximumSize) const
{
    const auto content = readFilePart(url, 0, std::numeric_limits<qint64>::max());
    return content && content->size() <= maximumSize ? content : std::nullopt;
}

std::optional<QByteArray> InMemoryFileSystem::readFilePart(const Url &url, qint64 offset,
                                                           qint64 maximumLength) const
{
    const auto *item = lookUp(url).item;
    const bool canBeRead = item && item->second.values.type == FileType::regular && item->second.isReadable;
    if (!canBeRead || offset < 0)
        return std::nullopt;
    return item->second.content.mid(offset, std::max<qint64>(maximumLength, 0));
}

Url InMemoryFileSystem::put(const QByteArray &path, Item item)
{
    const auto where = url(path).standardizedPath();
    const auto name = Url(where).lastPathComponent();
    Q_ASSERT_X(name.size() <= longestName, "InMemoryFileSystem", "no file has such a name");
    if (!m_items.contains(parentOf(where)))
        folder(parentOf(where));
    Q_ASSERT_X(m_items.at(parentOf(where)).values.type == FileType::directory, "InMemoryFileSystem",
               "no folder is above it");
    const auto [there, isNew] = m_items.try_emplace(where);
    Q_ASSERT_X(isNew || there->second.values.type == item.values.type, "InMemoryFileSystem",
               "something else is there already");
    if (isNew)
        m_items.at(parentOf(where)).children.append(name);
    item.children = there->second.children;
    there->second = std::move(item);
    return url(path);
}

InMemoryFileSystem::LookUp InMemoryFileSystem::lookUp(const Url &url, LastLink lastLink) const
{
    constexpr int mostLinks = 40;
    const LookUp outOfReach{.isCertain = false};
    int links = 0;
    if (!url.path().startsWith('/'))
        return {};
    const auto *const root = &*m_items.begin();
    const auto *item = root;
    auto rest = url.path().split('/');
    while (!rest.isEmpty()) {
        const auto name = rest.takeFirst();
        if (name.isEmpty())
            continue;
        const auto &[path, folder] = *item;
        if (folder.values.type != FileType::directory)
            return {};
        if (name.size() > longestName || !folder.isReadable)
            return outOfReach;
        if (name == ".")
            continue;
        const auto next = m_items.find(name == ".." ? parentOf(path) : path + '/' + name);
        if (next == m_items.end() || next->second.isGone)
            return {};
        const auto &target = next->second.linkTarget;
        const bool isLink = next->second.values.type == FileType::symbolicLink;
        if (isLink && (!rest.isEmpty() || lastLink == LastLink::followed)) {
            if (++links > mostLinks)
                return outOfReach;
            if (target.startsWith('/'))
                item = root;
            rest = target.split('/') + rest;
        } else {
            item = &*next;
        }
    }
    return {item};
}
