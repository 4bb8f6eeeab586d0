#include "LinuxTreeWalk.h"

#include "LinuxFolderPart.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/resource.h>

namespace {

constexpr size_t listingSize = 32 * 1024;

/// The most descriptors of a walk; where the system allows the program few, a walk takes a quarter of them.
constexpr size_t mostDescriptors = 256;

// A thread lists a folder, and opens another one or finds the way to it again meanwhile.
constexpr size_t descriptorsOfAThread = 3;

} // namespace

LinuxTreeWalk::Limits LinuxTreeWalk::Limits::ofThisProcess()
{
    rlimit allowed{mostDescriptors, mostDescriptors};
    getrlimit(RLIMIT_NOFILE, &allowed);
    const auto most = std::clamp<size_t>(allowed.rlim_cur / 4, 8, mostDescriptors);
    auto threads = TaskStack::threadsOfThisPriority();
    threads.atMost = std::clamp<size_t>(most / (2 * descriptorsOfAThread), 1, threads.atMost);
    threads.atFirst = std::min(threads.atFirst, threads.atMost);
    const auto shared = most / 16;
    return {threads, most - threads.atMost * descriptorsOfAThread - shared, static_cast<int>(shared)};
}

LinuxTreeWalk::LinuxTreeWalk(const Calls &calls, const std::stop_token &stop)
    : LinuxTreeWalk(calls, stop, Limits::ofThisProcess())
{
}

LinuxTreeWalk::LinuxTreeWalk(const Calls &calls, const std::stop_token &stop, const Limits &limits)
    : m_calls(calls), m_stop(stop), m_mostSharedListings(limits.sharedListings),
      m_descriptors(limits.keptFolders,
                    [this](const WalkedFolder &folder) { return m_calls.open(Url(folder.pathOf({}))); }),
      m_tasks(limits.threads, stop)
{
}

void LinuxTreeWalk::run(const QList<Url> &folders)
{
    std::vector<WalkedFolder::Pointer> given;
    for (quint32 index = 0; const auto &folder : folders) {
        if (!folder.isEmpty())
            given.emplace_back(new WalkedFolder(folder, index));
        ++index;
    }
    push(std::move(given));
    m_tasks.run();
}

void LinuxTreeWalk::push(std::vector<WalkedFolder::Pointer> folders)
{
    std::vector<TaskStack::Task> tasks;
    tasks.reserve(folders.size());
    for (auto &folder : folders)
        tasks.emplace_back([this, folder = std::move(folder)] { enter(folder); });
    m_tasks.push(std::move(tasks));
}

void LinuxTreeWalk::enter(const WalkedFolder::Pointer &folder)
{
    if (!folder->parent && !m_calls.enters(folder->index))
        return;
    auto descriptor = open(*folder);
    while (!descriptor.isOpen() && (errno == EMFILE || errno == ENFILE) && m_descriptors.keepFewer())
        descriptor = open(*folder);
    if (folder->parent)
        m_descriptors.release(*folder->parent);
    if (descriptor.isOpen())
        list(folder, std::make_shared<const FileDescriptor>(std::move(descriptor)), 0);
}

/// Not open when it is not there any more or cannot be read.
FileDescriptor LinuxTreeWalk::open(const WalkedFolder &folder)
{
    if (!folder.parent)
        return m_calls.open(Url(folder.pathOf({})));
    const auto parent = m_descriptors.of(*folder.parent);
    return parent ? openFolder(*parent, folder.name.constData(), O_RDONLY) : FileDescriptor();
}

/// Shows what is listed in `folder` after the first `offset` bytes.
void LinuxTreeWalk::list(const WalkedFolder::Pointer &folder, const Descriptor &descriptor, quint64 offset)
{
    alignas(dirent64) char listing[listingSize];
    while (!m_stop.stop_requested()) {
        const auto size = readListing(*descriptor, listing, listingSize);
        if (size == 0)
            return;
        const bool isShared = size > listingSize / 2 && shareRest(folder, descriptor, offset + size);
        show(folder, descriptor, {listing, size}, offset);
        if (isShared)
            return;
        offset += size;
    }
}

/// Leaves the rest of a long listing to whoever has time. What waits for that has a descriptor, so it must not be
/// much.
bool LinuxTreeWalk::shareRest(const WalkedFolder::Pointer &folder, const Descriptor &descriptor, quint64 offset)
{
    if (m_sharedListings.fetch_add(1) >= m_mostSharedListings) {
        --m_sharedListings;
        return false;
    }
    m_tasks.push({[this, folder, descriptor, offset] {
        --m_sharedListings;
        list(folder, descriptor, offset);
    }});
    return true;
}

void LinuxTreeWalk::show(const WalkedFolder::Pointer &folder, const Descriptor &descriptor,
                         std::span<const char> listing, quint64 offset)
{
    LinuxFolderPart part(folder, *descriptor, listing, offset, m_stop);
    m_calls.visit(part);
    auto folders = part.takeFolders();
    if (folders.empty())
        return;
    m_descriptors.keep(*folder, descriptor, folders.size());
    push(std::move(folders));
}
