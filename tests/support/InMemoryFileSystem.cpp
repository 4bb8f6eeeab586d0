#include "InMemoryFileSystem.h"

#include "Packages.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <mutex>
#include <thread>
#include <utility>

// As of nearly every file system.
static constexpr qsizetype longestName = 255;

/// What a folder holds, and where it comes.
class InMemoryFileSystem::Part : public FolderPart
{
public:
    Part(const Url &folder, const Node &node, WalkPlace place, std::stop_token stop)
        : m_folder(folder), m_place(std::move(place)), m_stop(std::move(stop))
    {
        if (node.isReadable && !node.isGone)
            m_children = node.children;
    }

    bool next() override
    {
        if (std::exchange(m_entersCurrent, false))
            m_found.emplace_back(url(), *m_current, place(), m_stop);
        do {
            if (m_next == m_children.size() || m_stop.stop_requested())
                return false;
            m_current = m_children[m_next++];
        } while (m_current->name.startsWith('.'));
        m_entersCurrent = isPlainFolder(*m_current);
        return true;
    }

    QByteArrayView name() const override { return m_current->name; }
    FileType type() const override { return m_current->values.type; }
    int level() const override { return static_cast<int>(m_place.size()); }
    Url url() const override { return m_folder / m_current->name; }
    std::optional<ResourceValues> resourceValues() const override
    {
        return m_current->isGone ? std::nullopt : std::optional(m_current->values);
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
    Url m_folder;
    WalkPlace m_place;
    std::stop_token m_stop;
    std::vector<NodePointer> m_children;
    size_t m_next = 0;
    NodePointer m_current;
    bool m_entersCurrent = false;
    std::vector<Part> m_found;
};

InMemoryFileSystem::InMemoryFileSystem()
{
    folder("~");
}

void InMemoryFileSystem::remove(const QByteArray &path)
{
    if (const auto item = node(path))
        std::erase(item->parent.lock()->children, item);
}

bool InMemoryFileSystem::isGone(const Url &url) const
{
    const auto found = lookUp(url, LastLink::followed, Rights::ofTheUser);
    return !found.item && found.isCertain && !m_outOfSight.contains(url);
}

bool InMemoryFileSystem::isDirectory(const Url &url) const
{
    const auto item = find(url, LastLink::followed);
    return item && item->values.type == FileType::directory;
}

std::optional<Url> InMemoryFileSystem::resolved(const Url &url) const
{
    QByteArray path;
    const auto item = find(url, LastLink::followed);
    for (auto node = item; node && node != m_root; node = node->parent.lock())
        path.prepend('/' + node->name);
    return item ? std::optional(Url(path.isEmpty() ? "/" : path)) : std::nullopt;
}

bool InMemoryFileSystem::isExecutable(const Url &url) const
{
    const auto item = find(url, LastLink::followed);
    return item && (item->values.type == FileType::directory ? item->isReadable : item->isExecutable);
}

DirectoryEnumeration InMemoryFileSystem::contentsOfDirectory(const Url &folder) const
{
    const auto node = find(folder, LastLink::followed);
    return node ? DirectoryEnumeration(std::make_unique<Part>(folder, *node, WalkPlace{0}, m_stop))
                : DirectoryEnumeration();
}

void InMemoryFileSystem::walk(const QList<Url> &folders, const FolderVisitor &visit,
                              const FolderChoice &enters) const
{
    std::vector<Part> parts;
    for (quint32 index = 0; const auto &folder : folders) {
        const auto node = enters(index) ? find(folder, LastLink::followed) : nullptr;
        if (node)
            parts.emplace_back(folder, *node, WalkPlace{index}, m_stop);
        ++index;
    }
    // Whatever order and threads can do to a visitor: the last ones first, by two threads.
    std::mutex mutex;
    const auto work = [&] {
        for (std::unique_lock lock(mutex); !parts.empty() && !m_stop.stop_requested();) {
            auto part = std::move(parts.back());
            parts.pop_back();
            lock.unlock();
            visit(part);
            lock.lock();
            std::ranges::move(part.takeFound(), std::back_inserter(parts));
        }
    };
    while (!parts.empty() && !m_stop.stop_requested()) {
        std::jthread other(work);
        work();
    }
}

std::optional<ResourceValues> InMemoryFileSystem::resourceValues(const Url &url) const
{
    const auto item = find(url, LastLink::kept);
    return item ? std::optional(item->values) : std::nullopt;
}

std::optional<QByteArray> InMemoryFileSystem::readFile(const Url &url, qint64 maximumSize) const
{
    const auto content = readFilePart(url, 0, std::numeric_limits<qint64>::max());
    return content && content->size() <= maximumSize ? content : std::nullopt;
}

std::optional<QByteArray> InMemoryFileSystem::readFilePart(const Url &url, qint64 offset,
                                                           qint64 maximumLength) const
{
    const auto item = find(url, LastLink::followed);
    const bool canBeRead = item && item->values.type == FileType::regular && item->isReadable;
    if (!canBeRead || offset < 0)
        return std::nullopt;
    return item->content.mid(offset, std::max<qint64>(maximumLength, 0));
}

Url InMemoryFileSystem::put(const QByteArray &path, Node item)
{
    const Url where(url(path).standardizedPath());
    Q_ASSERT_X(where.lastPathComponent().size() <= longestName, "InMemoryFileSystem", "no file has such a name");
    const auto locate = [this](const Url &place) {
        return lookUp(place, LastLink::kept, Rights::ofTheBuilder).item;
    };
    auto there = locate(where);
    if (there) {
        Q_ASSERT_X(there->values.type == item.values.type, "InMemoryFileSystem",
                   "something else is there already");
        item.children = there->children;
    } else {
        if (!locate(where.parent()))
            put(where.parent().path(), {.values = {FileType::directory, {}, {}}});
        there = std::make_shared<Node>();
        locate(where.parent())->children.push_back(there);
    }
    item.name = where.lastPathComponent();
    item.parent = locate(where.parent());
    *there = std::move(item);
    return url(path);
}

bool InMemoryFileSystem::isPlainFolder(const Node &node)
{
    return node.values.type == FileType::directory && !isPackageName(node.name);
}

InMemoryFileSystem::NodePointer InMemoryFileSystem::child(const Node &folder, const QByteArray &name)
{
    const auto found = std::ranges::find(folder.children, name, &Node::name);
    return found == folder.children.end() ? nullptr : *found;
}

InMemoryFileSystem::LookUp InMemoryFileSystem::lookUp(const Url &url, LastLink lastLink, Rights rights) const
{
    constexpr int mostLinks = 40;
    const LookUp outOfReach{.isCertain = false};
    int links = 0;
    if (!url.path().startsWith('/'))
        return {};
    auto item = m_root;
    auto rest = url.path().split('/');
    while (!rest.isEmpty()) {
        const auto name = rest.takeFirst();
        if (name.isEmpty())
            continue;
        if (item->values.type != FileType::directory)
            return {};
        if (name.size() > longestName || (rights == Rights::ofTheUser && !item->isReadable))
            return outOfReach;
        if (name == ".")
            continue;
        if (name == "..") {
            item = item->parent.expired() ? m_root : item->parent.lock();
            continue;
        }
        const auto next = child(*item, name);
        if (!next || next->isGone)
            return {};
        if (next->values.type == FileType::symbolicLink && (!rest.isEmpty() || lastLink == LastLink::followed)) {
            if (++links > mostLinks)
                return outOfReach;
            if (next->linkTarget.startsWith('/'))
                item = m_root;
            rest = next->linkTarget.split('/') + rest;
        } else {
            item = next;
        }
    }
    return {item};
}
