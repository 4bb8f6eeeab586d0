#include "InMemoryFileSystem.h"

#include <QHash>
#include <QList>

#include <algorithm>
#include <vector>

struct InMemoryFileSystem::Node
{
    Node(const QByteArray &ownName, FileType ownType)
        : name(ownName), type(ownType), values{ownType, std::nullopt, std::nullopt}
    {
    }

    QByteArray name;
    FileType type;
    ResourceValues values;
    QByteArray content;
    QByteArray linkTarget;
    std::weak_ptr<Node> parent;
    std::vector<std::shared_ptr<Node>> children;
    QHash<QByteArray, std::shared_ptr<Node>> childrenByName;
    bool isExecutable = false;
    bool isReadable = true;
    bool isGone = false;

    std::vector<std::shared_ptr<Node>> visibleChildren() const
    {
        std::vector<std::shared_ptr<Node>> visible;
        if (isReadable && !isGone) {
            std::ranges::copy_if(children, std::back_inserter(visible),
                                 [](const auto &child) { return !child->name.startsWith('.'); });
        }
        return visible;
    }

    bool isPackage() const
    {
        static const QList<QByteArray> extensions{"app",  "bundle",        "appex", "xpc",
                                                  "rtfd", "photoslibrary", "pages"};
        return type == FileType::directory && extensions.contains(extensionOf(name).toByteArray().toLower());
    }

    std::optional<ResourceValues> currentValues() const { return isGone ? std::nullopt : std::optional(values); }
};

/// A walk over what each folder held at the moment when the walk entered it.
class InMemoryFileSystem::Walk : public DirectoryWalk
{
public:
    enum class Depth { oneLevel, full };

    Walk(const Url &folder, const Node &node, Depth depth) : m_depth(depth)
    {
        m_levels.push_back({folder, node.visibleChildren()});
    }

    bool next() override
    {
        if (m_current && mayEnter())
            m_levels.push_back({url(), m_current->visibleChildren()});
        m_isSkipped = false;
        while (!m_levels.empty() && m_levels.back().next == m_levels.back().children.size())
            m_levels.pop_back();
        m_current = m_levels.empty() ? nullptr : m_levels.back().children[m_levels.back().next++];
        return m_current != nullptr;
    }

    QByteArrayView name() const override { return m_current->name; }
    FileType type() const override { return m_current->type; }
    int level() const override { return static_cast<int>(m_levels.size()); }
    Url url() const override { return m_levels.back().folder / m_current->name; }
    std::optional<ResourceValues> resourceValues() const override { return m_current->currentValues(); }
    void skipDescendants() override { m_isSkipped = true; }

private:
    struct Level
    {
        Url folder;
        std::vector<std::shared_ptr<Node>> children;
        size_t next = 0;
    };

    bool mayEnter() const
    {
        return m_depth == Depth::full && !m_isSkipped && m_current->type == FileType::directory
               && !m_current->isPackage();
    }

    Depth m_depth;
    bool m_isSkipped = false;
    std::shared_ptr<Node> m_current;
    std::vector<Level> m_levels;
};

InMemoryFileSystem::InMemoryFileSystem() : m_root(std::make_shared<Node>(QByteArray(), FileType::directory))
{
    folder("~");
}

InMemoryFileSystem::~InMemoryFileSystem() = default;

Url InMemoryFileSystem::url(const QByteArray &path) const
{
    return path.startsWith('~') ? Url(homeDirectory().path() + path.mid(1)) : Url(path);
}

Url InMemoryFileSystem::folder(const QByteArray &path)
{
    // A folder's own size must never be counted, so there is one to be counted wrongly.
    make(path, FileType::directory)->values.totalAllocatedSize = 4096;
    return url(path);
}

Url InMemoryFileSystem::file(const QByteArray &path, std::optional<qint64> totalAllocatedSize,
                             std::optional<qint64> allocatedSize)
{
    make(path, FileType::regular)->values = {FileType::regular, totalAllocatedSize, allocatedSize};
    return url(path);
}

Url InMemoryFileSystem::fileWithContent(const QByteArray &path, const QByteArray &content)
{
    file(path, content.size());
    find(url(path), LastLink::kept)->content = content;
    return url(path);
}

Url InMemoryFileSystem::executable(const QByteArray &path)
{
    file(path);
    find(url(path), LastLink::kept)->isExecutable = true;
    return url(path);
}

Url InMemoryFileSystem::link(const QByteArray &path, const QByteArray &target)
{
    const auto node = make(path, FileType::symbolicLink);
    node->linkTarget = url(target).path();
    node->values.totalAllocatedSize = 1;
    return url(path);
}

Url InMemoryFileSystem::device(const QByteArray &path)
{
    make(path, FileType::other)->values.totalAllocatedSize = 4096;
    return url(path);
}

void InMemoryFileSystem::makeUnreadable(const QByteArray &path)
{
    find(url(path), LastLink::kept)->isReadable = false;
}

void InMemoryFileSystem::makeVanishing(const QByteArray &path)
{
    find(url(path), LastLink::kept)->isGone = true;
}

void InMemoryFileSystem::makeListedTwice(const QByteArray &path)
{
    const auto node = find(url(path), LastLink::kept);
    node->parent.lock()->children.push_back(node);
}

void InMemoryFileSystem::remove(const QByteArray &path)
{
    const auto node = find(url(path), LastLink::kept);
    if (!node)
        return;
    const auto parent = node->parent.lock();
    parent->childrenByName.remove(node->name);
    std::erase(parent->children, node);
}

Url InMemoryFileSystem::homeDirectory() const
{
    return Url("/Users/me");
}

bool InMemoryFileSystem::exists(const Url &url) const
{
    return find(url, LastLink::followed) != nullptr;
}

bool InMemoryFileSystem::isDirectory(const Url &url) const
{
    const auto node = find(url, LastLink::followed);
    return node && node->type == FileType::directory;
}

bool InMemoryFileSystem::isExecutable(const Url &url) const
{
    const auto node = find(url, LastLink::followed);
    return node && node->isExecutable;
}

DirectoryEnumeration InMemoryFileSystem::contentsOfDirectory(const Url &folder) const
{
    const auto node = find(folder, LastLink::followed);
    return node ? DirectoryEnumeration(std::make_unique<Walk>(folder, *node, Walk::Depth::oneLevel))
                : DirectoryEnumeration();
}

DirectoryEnumeration InMemoryFileSystem::enumerate(const Url &folder) const
{
    const auto node = find(folder, LastLink::followed);
    return node ? DirectoryEnumeration(std::make_unique<Walk>(folder, *node, Walk::Depth::full))
                : DirectoryEnumeration();
}

std::optional<ResourceValues> InMemoryFileSystem::resourceValues(const Url &url) const
{
    const auto node = find(url, LastLink::kept);
    return node ? node->currentValues() : std::nullopt;
}

std::optional<QByteArray> InMemoryFileSystem::readFile(const Url &url, qint64 maximumSize) const
{
    const auto content = contentOf(url);
    return content && content->size() <= maximumSize ? content : std::nullopt;
}

std::optional<QByteArray> InMemoryFileSystem::readFilePart(const Url &url, qint64 offset,
                                                           qint64 maximumLength) const
{
    const auto content = contentOf(url);
    return content ? std::optional(content->mid(offset, maximumLength)) : std::nullopt;
}

std::optional<VolumeValues> InMemoryFileSystem::volumeValues(const Url &url) const
{
    return exists(url) ? m_volume : std::nullopt;
}

std::shared_ptr<InMemoryFileSystem::Node> InMemoryFileSystem::make(const QByteArray &path, FileType type)
{
    auto node = m_root;
    const auto names = url(path).standardizedPath().mid(1).split('/');
    for (qsizetype i = 0; i < names.size(); ++i) {
        auto &child = node->childrenByName[names[i]];
        if (!child) {
            const auto childType = i + 1 < names.size() ? FileType::directory : type;
            child = std::make_shared<Node>(names[i], childType);
            child->parent = node;
            node->children.push_back(child);
        }
        node = child;
    }
    Q_ASSERT_X(node->type == type, "InMemoryFileSystem", "something else is there already");
    return node;
}

std::shared_ptr<InMemoryFileSystem::Node> InMemoryFileSystem::find(const Url &url, LastLink lastLink) const
{
    constexpr int mostLinks = 40;
    int links = 0;
    auto node = m_root;
    auto rest = url.path().split('/');
    while (node && !rest.isEmpty()) {
        const auto name = rest.takeFirst();
        if (name.isEmpty() || name == ".")
            continue;
        if (name == "..") {
            node = node->parent.expired() ? m_root : node->parent.lock();
            continue;
        }
        const auto child = node->childrenByName.value(name);
        if (!child || child->isGone)
            return nullptr;
        if (child->type == FileType::symbolicLink && (!rest.isEmpty() || lastLink == LastLink::followed)) {
            if (++links > mostLinks)
                return nullptr;
            if (child->linkTarget.startsWith('/'))
                node = m_root;
            rest = child->linkTarget.split('/') + rest;
        } else {
            node = child;
        }
    }
    return node;
}

std::optional<QByteArray> InMemoryFileSystem::contentOf(const Url &url) const
{
    const auto node = find(url, LastLink::followed);
    const bool canBeRead = node && node->type == FileType::regular && node->isReadable;
    return canBeRead ? std::optional(node->content) : std::nullopt;
}
