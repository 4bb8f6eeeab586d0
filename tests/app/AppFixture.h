#pragma once

#include "AppViewModel.h"
#include "FakeComputer.h"
#include "PrivilegedHelperClient.h"
#include "RemovalWorkflow.h"
#include "ScanWorkflows.h"

#include <QCoro/QCoroTask>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

using QCoro::waitFor;
using testing::ElementsAre;
using testing::IsEmpty;

/// The state object on a disk in memory.
struct AppFixture : testing::Test, protected FakeComputer
{
    AppFixture()
    {
        disk.executable(QByteArray("/Applications/Tarnvale.app/")
                        + PrivilegedHelperClient::helperExecutablePath());
        disk.file(QByteArray("/Applications/Tarnvale.app/") + PrivilegedHelperClient::helperDaemonPlistPath());
    }

    std::unique_ptr<AppViewModel> owner = std::make_unique<AppViewModel>(platform);
    AppViewModel &app = *owner;
    ScanWorkflows &scans = app.scans();

    /// Lets the running workflow end.
    void settle()
    {
        disk.release();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !app.isProcessing(); }));
    }

    void chooseMedia(const std::optional<Url> &folder)
    {
        chooser.folder = folder;
        app.chooseMediaFolder();
    }

    void toggleEveryCategory()
    {
        for (const auto category : allCases<MediaCategory>())
            app.toggleMediaCategory(category);
        for (const auto category : allCases<TextFileCategory>())
            app.toggleTextFileCategory(category);
    }

    /// A known application with one cache, which is tied to it by the identifier.
    InstalledApplication notes(qint64 cacheSize = 5000)
    {
        disk.file("~/Library/Caches/org.notes/data", cacheSize);
        return disk.application("/Applications/Notes.app", {.identifier = "org.notes"});
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
