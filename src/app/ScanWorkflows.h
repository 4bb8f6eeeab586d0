#pragma once

#include "ApplicationCatalogScanner.h"
#include "AssociatedFileScanner.h"
#include "JunkScanner.h"
#include "LeftoverScanner.h"
#include "MediaScanner.h"
#include "TextFileScanner.h"

#include <QCoro/QCoroFuture>
#include <QCoro/QCoroTask>

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
