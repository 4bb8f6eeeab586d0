#pragma once

#include "BackgroundPriority.h"
#include "FakeApplicationRegistry.h"
#include "FakeFolderChooser.h"
#include "FakeHelperService.h"
#include "FakeSystemFacts.h"
#include "FakeWorkspace.h"
#include "Platform.h"
#include "TestDisk.h"

#include <QCoreApplication>
#include <QThread>

#include <mutex>

/// A disk that lists no folder and walks no tree while it is held, so that a scan in the background stays in the background.
class HoldableDisk : public TestDisk
{
public:
    void hold() { m_hold.lock(); }
    void release()
    {
        if (m_hold.owns_lock())
            m_hold.unlock();
    }
    void walk(const QList<Url> &folders, const FolderVisitor &visit, const FolderChoice &enters) const override
    {
        if (QThread::currentThread() == QCoreApplication::instance()->thread())
            ++timesWalkedOnMainThread;
        else
            const std::lock_guard waiting(m_gate);
        TestDisk::walk(folders, visit, enters);
    }
    /// How often a tree was walked on the thread that must not wait for it; it is not held.
    mutable int timesWalkedOnMainThread = 0;

    DirectoryEnumeration contentsOfDirectory(const Url &folder) const override
    {
        const std::lock_guard waiting(m_gate);
        return TestDisk::contentsOfDirectory(folder);
    }

private:
    mutable std::mutex m_gate;
    std::unique_lock<std::mutex> m_hold{m_gate, std::defer_lock};
};

/// Counts how often it is asked for which priority.
class RecordingPriority : public BackgroundPriority
{
public:
    void apply(TaskPriority priority) const override
    {
        (priority == TaskPriority::utility ? timesUtility : timesUserInitiated)++;
    }
    mutable std::atomic<int> timesUtility = 0;
    mutable std::atomic<int> timesUserInitiated = 0;
};

/// Everything that the state object and the window ask of a computer.
struct FakeComputer
{
    HoldableDisk disk;
    FakeApplicationRegistry registry;
    FakeSystemFacts facts;
    RecordingPriority priority;
    FakeWorkspace workspace{disk};
    FakeHelperService helper;
    FakeFolderChooser chooser;
    const Platform platform{
        .fileSystem = disk,
        .bundleReader = disk.bundles,
        .codeSignature = disk.signatures,
        .applicationRegistry = registry,
        .systemFacts = facts,
        .backgroundPriority = priority,
        .workspace = workspace,
        .helperService = helper,
        .folderChooser = chooser,
    };
};
