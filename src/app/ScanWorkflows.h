#pragma once

#include "ApplicationCatalogScanner.h"
#include "AssociatedFileScanner.h"
#include "BackgroundPriority.h"
#include "JunkScanner.h"
#include "LeftoverScanner.h"
#include "ListModel.h"
#include "MediaScanner.h"
#include "TextFileScanner.h"

#include <QCoro/QCoroTask>
#include <QFuture>

#include <optional>

class AppViewModel;
class BundleReader;
class FileSystem;
class FolderChooser;
class Workspace;
struct Platform;

/// The operations of the state object that find things, each one coroutine that reads as its steps. Called on the
/// main thread; a workflow that is resumed after the state object is gone ends without touching anything.
class ScanWorkflows
{
public:
    ScanWorkflows(AppViewModel &state, const Platform &platform);

    QCoro::Task<> loadApplications(bool force);
    QCoro::Task<> scanApplicationByName();
    QCoro::Task<> scan(InstalledApplication application);
    QCoro::Task<> handleDroppedApplication(Url url);
    QCoro::Task<> scanLeftovers();
    QCoro::Task<> searchLeftovers();
    QCoro::Task<> scanCleaner();
    QCoro::Task<> chooseMediaFolder();
    QCoro::Task<> chooseTextFolder();
    QCoro::Task<> scanMedia();
    QCoro::Task<> scanTextFiles();

    /// All applications now; used by a removal as well. Changes nothing by itself.
    QFuture<QList<InstalledApplication>> startCatalogScan();

private:
    /// What the status line says of a scan, as keys of texts.
    struct Announcement
    {
        QStringView progress;
        /// At the end: when nothing was found, and, with the number, when something was. Left out where the result
        /// speaks for itself.
        QStringView nothing = {};
        QStringView found = {};
    };

    /// The common sequence of a scan from its busy check to its end: `function(arguments...)` finds, on another
    /// thread, what takes the place of all that `list` holds.
    template <typename Row, typename Function, typename... Arguments>
    QCoro::Task<> fill(ListModel<Row> &list, Announcement texts, TaskPriority priority, Function function,
                       Arguments... arguments);

    /// Asks for a folder; one that is chosen empties the list of what was found in the one before.
    template <typename Row>
    QCoro::Task<> chooseFolder(QStringView titleKey, void (AppViewModel::*setFolder)(std::optional<Url>),
                               ListModel<Row> &list);

    /// The application that the bundle at `dropped` is; absent when it is not one. Measures the bundle, and
    /// blocks.
    std::optional<InstalledApplication> applicationFromDroppedBundle(const Url &dropped) const;

    AppViewModel &m_state;
    const FileSystem &m_fileSystem;
    const BundleReader &m_bundleReader;
    Workspace &m_workspace;
    FolderChooser &m_folderChooser;
    ApplicationCatalogScanner m_catalogScanner;
    AssociatedFileScanner m_associatedScanner;
    LeftoverScanner m_leftoverScanner;
    JunkScanner m_junkScanner;
    MediaScanner m_mediaScanner;
    TextFileScanner m_textFileScanner;
};
