#include "FolderDescriptors.h"

#include <algorithm>
#include <fcntl.h>
#include <utility>

void FolderDescriptors::keep(WalkedFolder &folder, const Descriptor &descriptor, size_t count)
{
    // Asked outside of the lock: a server may not answer.
    const auto identity = identityOf(*descriptor);
    Descriptor closed;
    const std::lock_guard lock(m_mutex);
    folder.opened.identity = identity;
    folder.opened.waiting += count;
    if (!folder.opened.descriptor)
        add(folder, descriptor);
    if (m_open.size() > m_most)
        closed = close(*m_open.front());
}

FolderDescriptors::Descriptor FolderDescriptors::of(WalkedFolder &folder)
{
    std::unique_lock lock(m_mutex);
    std::vector<WalkedFolder *> closed;
    for (auto *next = &folder; next && !next->opened.descriptor; next = next->parent.data())
        closed.push_back(next);
    auto *const nearest = closed.empty() ? &folder : closed.back()->parent.data();
    auto descriptor = nearest ? nearest->opened.descriptor : nullptr;
    for (; !closed.empty(); closed.pop_back()) {
        auto &next = *closed.back();
        const auto identity = next.opened.identity;
        lock.unlock();
        auto again = openAgain(next, descriptor);
        if (!again.isOpen())
            return nullptr;
        // Whoever moved a folder elsewhere meanwhile must not lead the walk there.
        if (identityOf(again) != identity)
            return nullptr;
        descriptor = std::make_shared<const FileDescriptor>(std::move(again));
        lock.lock();
        if (next.opened.waiting > 0 && !next.opened.descriptor)
            add(next, descriptor);
        const auto tooMany = m_open.size() > m_most ? close(*m_open.front()) : nullptr;
    }
    return descriptor;
}

void FolderDescriptors::release(WalkedFolder &folder)
{
    Descriptor closed;
    const std::lock_guard lock(m_mutex);
    if (--folder.opened.waiting == 0)
        closed = close(folder);
}

bool FolderDescriptors::keepFewer()
{
    std::vector<Descriptor> closed;
    const std::lock_guard lock(m_mutex);
    while (!m_open.empty())
        closed.push_back(close(*m_open.front()));
    return std::exchange(m_most, std::max(m_most / 2, size_t{1})) > 1;
}

void FolderDescriptors::add(WalkedFolder &folder, const Descriptor &descriptor)
{
    folder.opened.descriptor = descriptor;
    folder.opened.position = m_open.insert(m_open.end(), &folder);
}

/// What is closed when the answer goes: not under the lock, for that may take a while.
FolderDescriptors::Descriptor FolderDescriptors::close(WalkedFolder &folder)
{
    if (folder.opened.descriptor)
        m_open.erase(folder.opened.position);
    return std::exchange(folder.opened.descriptor, nullptr);
}

FileDescriptor FolderDescriptors::openAgain(const WalkedFolder &folder, const Descriptor &parent) const
{
    return folder.parent ? openFolder(*parent, folder.name.constData(), O_PATH) : m_openGiven(folder);
}
