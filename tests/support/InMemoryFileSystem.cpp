#include "InMemoryFileSystem.h"

#include "Packages.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <mutex>
#include <thread>

/// A walk over what each folder held at the moment when the walk entered it.
class InMemoryFileSystem::Walk : public DirectoryWalk
{
public:
    enum class Depth { oneLevel, full };

    static DirectoryEnumeration into(const Url &folder, const NodePointer &node, Depth depth)
    {
        return node ? DirectoryEnumeration(std::make_unique<Walk>(folder, *node, depth)) : DirectoryEnumeration();
    }
    Walk(const Url &folder, const Node &node, Depth depth) : m_depth(depth) { enter(folder, node); }

    bool next() override
    {
        if (m_current && m_depth == Depth::full && !m_isSkipped && isPlainFolder())
            enter(url(), *m_current);
        m_isSkipped = false;
        while (!m_levels.empty() && m_levels.back().children.empty())
            m_levels.pop_back();
        if (m_levels.empty())
            return false;
        m_current = m_levels.back().children.takeFirst();
        return true;
    }

    QByteArrayView name() const override { return m_current->name; }
    FileType type() const override { return m_current->values.type; }
    int level() const override { return static_cast<int>(m_levels.size()); }
    Url url() const override { return m_levels.back().folder / m_current->name; }
    std::optional<ResourceValues> resourceValues() const override
    {
        return m_current->isGone ? std::nullopt : std::optional(m_current->values);
    }
    void skipDescendants() override { m_isSkipped = true; }

private:
    struct Level
    {
        Url folder;
        QList<NodePointer> children;
    };

    void enter(const Url &folder, const Node &node)
    {
        auto &level = m_levels.emplace_back(Level{folder, {}});
        if (node.isReadable && !node.isGone) {
            std::ranges::copy_if(node.children, std::back_inserter(level.children),
                                 [](const auto &child) { return !child->name.startsWith('.'); });
        }
    }

    bool isPlainFolder() const { return InMemoryFileSystem::isPlainFolder(*m_current); }

    Depth m_depth;
    bool m_isSkipped = false;
    NodePointer m_current;
    std::vector<Level> m_levels;
};

/// What a folder holds, and where it comes.
class InMemoryFileSystem::Part : public FolderPart
{
public:
    Part(const Url &folder, const Node &node, WalkPlace place) : m_folder(folder), m_place(std::move(place))
    {
        if (node.isReadable && !node.isGone)
            m_children = node.children;
    }

    bool next() override
    {
        if (std::exchange(m_entersCurrent, false))
            m_found.emplace_back(url(), *m_current, place());
        do {
            if (m_next == m_children.size())
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
    return item && item->isExecutable;
}

DirectoryEnumeration InMemoryFileSystem::contentsOfDirectory(const Url &folder) const
{
    return Walk::into(folder, find(folder, LastLink::followed), Walk::Depth::oneLevel);
}

DirectoryEnumeration InMemoryFileSystem::enumerate(const Url &folder) const
{
    return Walk::into(folder, find(folder, LastLink::followed), Walk::Depth::full);
}

void InMemoryFileSystem::walk(const QList<Url> &folders, const FolderVisitor &visit) const
{
    std::vector<Part> parts;
    for (quint32 index = 0; const auto &folder : folders) {
        if (const auto node = find(folder, LastLink::followed))
            parts.emplace_back(folder, *node, WalkPlace{index});
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
    return canBeRead ? std::optional(item->content.mid(offset, maximumLength)) : std::nullopt;
}

Url InMemoryFileSystem::put(const QByteArray &path, Node item)
{
    const Url where(url(path).standardizedPath());
    auto there = find(where, LastLink::kept);
    if (there) {
        Q_ASSERT_X(there->values.type == item.values.type, "InMemoryFileSystem",
                   "something else is there already");
        item.children = there->children;
    } else {
        if (!find(where.parent(), LastLink::kept))
            put(where.parent().path(), {.values = {FileType::directory, {}, {}}});
        there = std::make_shared<Node>();
        find(where.parent(), LastLink::kept)->children.push_back(there);
    }
    item.name = where.lastPathComponent();
    item.parent = find(where.parent(), LastLink::kept);
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

InMemoryFileSystem::NodePointer InMemoryFileSystem::find(const Url &url, LastLink lastLink) const
{
    constexpr int mostLinks = 40;
    int links = 0;
    auto item = m_root;
    auto rest = url.path().split('/');
    while (item && !rest.isEmpty()) {
        const auto name = rest.takeFirst();
        if (name.isEmpty() || name == ".")
            continue;
        if (name == "..") {
            item = item->parent.expired() ? m_root : item->parent.lock();
            continue;
        }
        const auto next = child(*item, name);
        if (!next || next->isGone)
            return nullptr;
        if (next->values.type == FileType::symbolicLink && (!rest.isEmpty() || lastLink == LastLink::followed)) {
            if (++links > mostLinks)
                return nullptr;
            if (next->linkTarget.startsWith('/'))
                item = m_root;
            rest = next->linkTarget.split('/') + rest;
        } else {
            item = next;
        }
    }
    return item;
}
