#pragma once

#include "AppViewModel.h"
#include "FakeApplicationRegistry.h"
#include "FakeHelperService.h"
#include "FakeSystemFacts.h"
#include "FakeWorkspace.h"
#include "FolderChooser.h"
#include "Platform.h"
#include "PrivilegedHelperClient.h"
#include "RemovalWorkflow.h"
#include "ScanWorkflows.h"
#include "TestDisk.h"

#include <QPromise>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>
#include <mutex>

/// A dialog that stays open until the test answers it.
class FakeFolderChooser : public FolderChooser
{
public:
    QString title;
    QString prompt;

    QFuture<std::optional<Url>> chooseFolder(const QString &shownTitle, const QString &shownPrompt) override
    {
        title = shownTitle;
        prompt = shownPrompt;
        m_promise = std::make_unique<QPromise<std::optional<Url>>>();
        m_promise->start();
        return m_promise->future();
    }
    void answer(std::optional<Url> folder)
    {
        m_promise->addResult(std::move(folder));
        m_promise->finish();
        QTest::qWait(0);
    }

private:
    std::unique_ptr<QPromise<std::optional<Url>>> m_promise;
};

/// Grants access to dropped locations and counts what was not given back.
class GrantingWorkspace : public FakeWorkspace
{
public:
    using FakeWorkspace::FakeWorkspace;
    int grants = 0;
    int openGrants = 0;

    bool startAccessing(const Url &) override
    {
        ++grants;
        ++openGrants;
        return true;
    }
    void stopAccessing(const Url &) override { --openGrants; }
};

/// A disk that lists no folder while it is held, so that a scan in the background stays in the background.
class HoldableDisk : public TestDisk
{
public:
    void hold() { m_hold.lock(); }
    void release()
    {
        if (m_hold.owns_lock())
            m_hold.unlock();
    }
    DirectoryEnumeration contentsOfDirectory(const Url &folder) const override
    {
        const std::lock_guard waiting(m_gate);
        return TestDisk::contentsOfDirectory(folder);
    }

private:
    mutable std::mutex m_gate;
    std::unique_lock<std::mutex> m_hold{m_gate, std::defer_lock};
};

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

/// The state object on a disk in memory, in English where a test reads texts.
class AppFixture : public testing::Test
{
protected:
    AppFixture()
    {
        disk.executable(QByteArray("/Applications/Tarnvale.app/") + PrivilegedHelperClient::helperExecutablePath);
        disk.file(QByteArray("/Applications/Tarnvale.app/") + PrivilegedHelperClient::helperDaemonPlistPath);
    }

    HoldableDisk disk;
    FakeApplicationRegistry registry;
    FakeSystemFacts facts;
    RecordingPriority priority;
    GrantingWorkspace workspace{disk};
    FakeHelperService helper;
    FakeFolderChooser chooser;
    const Platform platform{disk,     disk.bundles, disk.signatures, registry, facts,
                            priority, workspace,    helper,          chooser};
    std::unique_ptr<AppViewModel> owner = std::make_unique<AppViewModel>(platform);
    AppViewModel &app = *owner;

    /// Lets the running workflow end.
    void settle()
    {
        disk.release();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !app.isProcessing(); }));
    }

    /// A known application with one cache, which is tied to it by the identifier.
    InstalledApplication notes(qint64 cacheSize = 5000)
    {
        disk.file("~/Library/Caches/org.notes/data", cacheSize);
        return disk.application("/Applications/Notes.app", {.identifier = QStringLiteral("org.notes")});
    }

    /// A cache that is large enough to be offered.
    Url largeCache(const QByteArray &name) { return disk.file("~/Library/Caches/" + name, 2'000'000); }

    template <typename Row> static QStringList namesOf(const QList<Row> &rows)
    {
        QStringList names;
        for (const auto &row : rows)
            names.append(row.url.displayName());
        return names;
    }
};
