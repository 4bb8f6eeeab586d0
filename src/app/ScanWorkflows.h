#pragma once

#include "ApplicationCatalogScanner.h"
#include "ApplicationReader.h"
#include "AssociatedFileScanner.h"
#include "BackgroundPriority.h"
#include "JunkScanner.h"
#include "LeftoverScanner.h"
#include "ListModel.h"
#include "MediaScanner.h"
#include "TextFileScanner.h"

#include <QCoro/QCoroTask>
#include <QFuture>

#include <functional>
#include <optional>

class AppViewModel;
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
    /// What a scan says in the status line, as keys of texts, and for how long its result is wanted.
    struct Search
    {
        QStringView progress;
        /// At the end: when nothing was found, and, with the number, when something was. Left out where the result
        /// speaks for itself.
        QStringView nothing = {};
        QStringView found = {};
        /// Asked at the end: whether what is looked at is still what was looked for. What comes too late changes
        /// nothing, and the status line ends empty. Left out where there is nothing to choose.
        std::function<bool()> isWanted = {};
    };

    /// The common sequence of a scan from its busy check to its end: `function(arguments...)` finds, on another
    /// thread, what takes the place of all that `list` holds.
    template <typename Row, typename Function, typename... Arguments>
    QCoro::Task<> fill(ListModel<Row> &list, Search search, TaskPriority priority, Function function,
                       Arguments... arguments);

    /// Asks for a folder; one that is chosen empties the list of what was found in the one before.
    template <typename Row>
    QCoro::Task<> chooseFolder(QStringView titleKey, void (AppViewModel::*setFolder)(std::optional<Url>),
                               ListModel<Row> &list);

    AppViewModel &m_state;
    Workspace &m_workspace;
    FolderChooser &m_folderChooser;
    ApplicationReader m_applicationReader;
    ApplicationCatalogScanner m_catalogScanner;
    AssociatedFileScanner m_associatedScanner;
    LeftoverScanner m_leftoverScanner;
    JunkScanner m_junkScanner;
    MediaScanner m_mediaScanner;
    TextFileScanner m_textFileScanner;
};
