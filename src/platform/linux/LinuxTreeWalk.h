#pragma once

#include "FolderDescriptors.h"
#include "TaskStack.h"

#include <atomic>
#include <span>
#include <stop_token>

/// A walk of several threads on directory descriptors: folders are tasks on one stack, and a folder is opened from
/// the one that it was listed in, so no path is looked up that could lead elsewhere meanwhile. Whatever the depth
/// and the breadth, few folders are open and few are waiting: what is found last is entered first.
class LinuxTreeWalk
{
public:
    using FolderOpener = std::function<FileDescriptor(const Url &)>;

    /// What a walk asks of others: `open` opens the folders that are given to it, if `enters` chooses them.
    struct Calls
    {
        const FolderOpener &open;
        const FileSystem::FolderVisitor &visit;
        const FileSystem::FolderChoice &enters;
    };

    /// Ends where it stands when `stop` is requested.
    LinuxTreeWalk(const Calls &calls, const std::stop_token &stop);

    /// Shows what is below the folders; called once.
    void run(const QList<Url> &folders);

private:
    using Descriptor = FolderDescriptors::Descriptor;

    /// How much may be open at once.
    struct Limits
    {
        static Limits ofThisProcess();
        TaskStack::Threads threads;
        size_t keptFolders;
        int sharedListings;
    };
    LinuxTreeWalk(const Calls &calls, const std::stop_token &stop, const Limits &limits);

    void push(std::vector<WalkedFolder::Pointer> folders);
    void enter(const WalkedFolder::Pointer &folder);
    FileDescriptor open(const WalkedFolder &folder);
    void list(const WalkedFolder::Pointer &folder, const Descriptor &descriptor, quint64 offset);
    bool shareRest(const WalkedFolder::Pointer &folder, const Descriptor &descriptor, quint64 offset);
    void show(const WalkedFolder::Pointer &folder, const Descriptor &descriptor, std::span<const char> listing,
              quint64 offset);

    const Calls m_calls;
    const std::stop_token &m_stop;
    const int m_mostSharedListings;
    std::atomic<int> m_sharedListings = 0;
    FolderDescriptors m_descriptors;
    TaskStack m_tasks;
};
