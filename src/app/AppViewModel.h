#pragma once

#include "BackgroundPools.h"
#include "DashboardSnapshot.h"
#include "DeletionRequest.h"
#include "InstalledApplication.h"
#include "ListModel.h"
#include "MacDisk.h"
#include "OperationReport.h"
#include "Text.h"
#include "UserNotice.h"

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>
#include <QSet>
#include <QVariant>

#include <memory>
#include <optional>

class RemovalWorkflow;
class ScanWorkflows;
class SystemFacts;
class SystemInfoService;
class Workspace;
struct Platform;

/// The one state object: everything that the screens show, and every operation that they may start.
///
/// Lives on the main thread, where all of it is read and written. Each published field is one property with a
/// signal of its own; the first 22 properties are those fields in order. The screens write the four that have a
/// WRITE and the selection flags of rows, and start the slots; a field that may be absent reaches QML as
/// undefined. Starting an operation returns at once; what it finds goes into the fields. Only one runs at a time:
/// while `isProcessing` is true, another ends silently at its busy check.
class AppViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Tarnvale::AppLanguage language READ language WRITE setLanguage NOTIFY languageChanged)
    Q_PROPERTY(Tarnvale::SidebarSelection sidebarSelection READ sidebarSelection WRITE setSidebarSelection NOTIFY
                   sidebarSelectionChanged)
    Q_PROPERTY(
        QString applicationQuery READ applicationQuery WRITE setApplicationQuery NOTIFY applicationQueryChanged)
    Q_PROPERTY(QString leftoverQuery READ leftoverQuery WRITE setLeftoverQuery NOTIFY leftoverQueryChanged)
    Q_PROPERTY(ListModelBase *applications READ applicationModel NOTIFY applicationsChanged)
    Q_PROPERTY(QVariant selectedApplication READ selectedApplicationValue NOTIFY selectedApplicationChanged)
    Q_PROPERTY(ListModelBase *associatedItems READ associatedItemModel NOTIFY associatedItemsChanged)
    Q_PROPERTY(ListModelBase *leftoverItems READ leftoverItemModel NOTIFY leftoverItemsChanged)
    Q_PROPERTY(ListModelBase *cleanerItems READ cleanerItemModel NOTIFY cleanerItemsChanged)
    Q_PROPERTY(ListModelBase *mediaFiles READ mediaFileModel NOTIFY mediaFilesChanged)
    Q_PROPERTY(QVariant selectedMediaFolder READ selectedMediaFolderValue NOTIFY selectedMediaFolderChanged)
    Q_PROPERTY(
        QList<int> selectedMediaCategories READ selectedMediaCategoryValues NOTIFY selectedMediaCategoriesChanged)
    Q_PROPERTY(ListModelBase *textFiles READ textFileModel NOTIFY textFilesChanged)
    Q_PROPERTY(QVariant selectedTextFolder READ selectedTextFolderValue NOTIFY selectedTextFolderChanged)
    Q_PROPERTY(QList<int> selectedTextFileCategories READ selectedTextFileCategoryValues NOTIFY
                   selectedTextFileCategoriesChanged)
    Q_PROPERTY(QVariant dashboardSnapshot READ dashboardSnapshotValue NOTIFY dashboardSnapshotChanged)
    Q_PROPERTY(bool isProcessing READ isProcessing NOTIFY isProcessingChanged)
    Q_PROPERTY(QVariant progress READ progressValue NOTIFY progressChanged)
    Q_PROPERTY(QString statusMessage READ statusMessage NOTIFY statusMessageChanged)
    Q_PROPERTY(QVariant pendingDeletion READ pendingDeletionValue NOTIFY pendingDeletionChanged)
    Q_PROPERTY(QVariant lastReport READ lastReportValue NOTIFY lastReportChanged)
    Q_PROPERTY(QVariant userNotice READ userNoticeValue NOTIFY userNoticeChanged)

    // What the screens enable, and the selected row of the application list; all follow from the fields above.
    Q_PROPERTY(bool canScan READ canScan NOTIFY isProcessingChanged)
    Q_PROPERTY(bool canScanByName READ canScanByName NOTIFY enablingChanged)
    Q_PROPERTY(bool canSearchLeftovers READ canSearchLeftovers NOTIFY enablingChanged)
    Q_PROPERTY(bool canScanMedia READ canScanMedia NOTIFY enablingChanged)
    Q_PROPERTY(bool canScanTextFiles READ canScanTextFiles NOTIFY enablingChanged)
    Q_PROPERTY(QList<int> deletableScopes READ deletableScopes NOTIFY enablingChanged)
    Q_PROPERTY(int selectedApplicationRow READ selectedApplicationRow NOTIFY selectedApplicationRowChanged)

    // Of what does not change.
    Q_PROPERTY(QString diskTitle READ diskTitle CONSTANT)

public:
    /// The services of `platform` outlive the object.
    explicit AppViewModel(const Platform &platform, QObject *parent = nullptr);
    ~AppViewModel() override;

    AppLanguage language() const { return m_language; }
    void setLanguage(AppLanguage language);
    SidebarSelection sidebarSelection() const { return m_sidebarSelection; }
    void setSidebarSelection(SidebarSelection section);
    const QString &applicationQuery() const { return m_applicationQuery; }
    void setApplicationQuery(const QString &query);
    const QString &leftoverQuery() const { return m_leftoverQuery; }
    void setLeftoverQuery(const QString &query);

    const QList<InstalledApplication> &applications() const { return m_applications.rows(); }
    const std::optional<InstalledApplication> &selectedApplication() const { return m_selectedApplication; }
    const QList<ScanItem> &associatedItems() const { return m_associatedItems.rows(); }
    const QList<ScanItem> &leftoverItems() const { return m_leftoverItems.rows(); }
    const QList<ScanItem> &cleanerItems() const { return m_cleanerItems.rows(); }
    const QList<MediaFile> &mediaFiles() const { return m_mediaFiles.rows(); }
    const std::optional<Url> &selectedMediaFolder() const { return m_selectedMediaFolder; }
    const QSet<MediaCategory> &selectedMediaCategories() const { return m_selectedMediaCategories; }
    const QList<TextFile> &textFiles() const { return m_textFiles.rows(); }
    const std::optional<Url> &selectedTextFolder() const { return m_selectedTextFolder; }
    const QSet<TextFileCategory> &selectedTextFileCategories() const { return m_selectedTextFileCategories; }
    /// Absent until the dashboard was shown.
    const std::optional<DashboardSnapshot> &dashboardSnapshot() const { return m_dashboardSnapshot; }
    bool isProcessing() const { return m_isProcessing; }
    /// 0 to 1; absent while it cannot be told.
    const std::optional<double> &progress() const { return m_progress; }
    /// In the language in which it was stored.
    const QString &statusMessage() const { return m_statusMessage; }
    const std::optional<DeletionRequest> &pendingDeletion() const { return m_pendingDeletion; }
    const std::optional<OperationReport> &lastReport() const { return m_lastReport; }
    const std::optional<UserNotice> &userNotice() const { return m_userNotice; }

    /// The lists as models for views.
    ListModelBase *applicationModel() { return &m_applications; }
    ListModelBase *associatedItemModel() { return &m_associatedItems; }
    ListModelBase *leftoverItemModel() { return &m_leftoverItems; }
    ListModelBase *cleanerItemModel() { return &m_cleanerItems; }
    /// The one of `associatedItems`, `leftoverItems` and `cleanerItems` that belongs to the scope.
    Q_INVOKABLE ListModelBase *itemModel(Tarnvale::ScanScope scope) { return &(this->*itemsOf(scope)); }
    ListModelBase *mediaFileModel() { return &m_mediaFiles; }
    ListModelBase *textFileModel() { return &m_textFiles; }

    /// Nothing runs.
    bool canScan() const { return !m_isProcessing; }
    /// Nothing runs, and there is something to look for.
    bool canScanByName() const;
    bool canSearchLeftovers() const;
    /// Nothing runs, and a folder and at least one category are chosen.
    bool canScanMedia() const;
    bool canScanTextFiles() const;
    /// Nothing runs, and at least one item of the scope's list is selected.
    bool canDelete(ScanScope scope) const;
    /// The numbers of the scopes for which that holds.
    QList<int> deletableScopes() const;
    /// The row of `applications` that holds the selected application; -1 when none does.
    int selectedApplicationRow() const;

    /// Which Mac's disk the program works on, and whose home; empty on the computer's own.
    QString diskTitle() const;

    /// Makes `application` the selected one and forgets what was found for the one before; nothing happens when it
    /// is that one already.
    void selectApplication(const std::optional<InstalledApplication> &application);

    /// The operations as coroutines, for a caller who waits for their end.
    ScanWorkflows &scans() { return *m_scans; }
    RemovalWorkflow &removal() { return *m_removal; }

    /// Blocks until no scan runs, or until the deadline: false then, and the object cannot be destroyed, as the scan
    /// uses it. For the end of the program, after its stop token is set; a workflow that waits for such a scan is
    /// abandoned.
    bool waitForBackground(QDeadlineTimer deadline = QDeadlineTimer::Forever)
    {
        return m_background.waitForBackground(deadline);
    }

public Q_SLOTS:
    /// Scans for the installed applications; unless forced, only while none is known.
    void loadApplications(bool force);
    void scanApplicationByName();
    void scan(const InstalledApplication &application);
    /// Selects the application in this row of `applications`; nothing happens for a row that is not there.
    void selectApplicationAt(int row);
    /// `url` as the desktop hands it over.
    void handleDroppedApplication(const Url &url);
    void scanLeftovers();
    void searchLeftovers();
    void scanCleaner();
    void chooseMediaFolder();
    void chooseTextFolder();
    void toggleMediaCategory(Tarnvale::MediaCategory category);
    void toggleTextFileCategory(Tarnvale::TextFileCategory category);
    void scanMedia();
    void scanTextFiles();
    /// Asks for the confirmation of a removal of what is selected in the scope's list.
    void requestDeletion(Tarnvale::ScanScope scope);
    /// Removes what `request` names. The request is the one that the user saw.
    void confirmDeletion(const DeletionRequest &request);
    /// The user answered the confirmation with Cancel.
    void cancelDeletion();
    /// The user closed the notice.
    void dismissNotice();
    /// Takes a new reading of the computer; short enough for the main thread. One that came before the battery was
    /// known is taken again once it is.
    void refreshDashboard();
    /// Shows a found item in the desktop's file manager.
    void revealItem(Tarnvale::ScanScope scope, int row);
    void revealMediaFile(int row);
    void revealTextFile(int row);

Q_SIGNALS:
    void languageChanged();
    void sidebarSelectionChanged();
    void applicationQueryChanged();
    void leftoverQueryChanged();
    void applicationsChanged();
    void selectedApplicationChanged();
    void associatedItemsChanged();
    void leftoverItemsChanged();
    void cleanerItemsChanged();
    void mediaFilesChanged();
    void selectedMediaFolderChanged();
    void selectedMediaCategoriesChanged();
    void textFilesChanged();
    void selectedTextFolderChanged();
    void selectedTextFileCategoriesChanged();
    void dashboardSnapshotChanged();
    void isProcessingChanged();
    void progressChanged();
    void statusMessageChanged();
    void pendingDeletionChanged();
    void lastReportChanged();
    void userNoticeChanged();
    void enablingChanged();
    void selectedApplicationRowChanged();

private:
    friend class RemovalWorkflow;
    friend class ScanWorkflows;

    // The fields as QML sees them.
    QVariant selectedApplicationValue() const;
    QVariant selectedMediaFolderValue() const;
    QList<int> selectedMediaCategoryValues() const;
    QVariant selectedTextFolderValue() const;
    QList<int> selectedTextFileCategoryValues() const;
    QVariant dashboardSnapshotValue() const;
    QVariant progressValue() const;
    QVariant pendingDeletionValue() const;
    QVariant lastReportValue() const;
    QVariant userNoticeValue() const;

    void connectLists();
    void connectDerivedProperties();
    void connectLateBattery();
    void warnOfReadOnlyDisk();
    template <typename Item> void reveal(const ListModel<Item> &items, int row);
    /// The list that a removal of this scope works on.
    static ListModel<ScanItem> AppViewModel::*itemsOf(ScanScope scope);

    // What the workflows write with. A field is announced when it changes; one whose type cannot be compared is
    // announced whenever it is set.
    template <typename Field, typename Value>
    void set(Field AppViewModel::*field, Value &&value, void (AppViewModel::*changed)());
    void setSelectedApplication(std::optional<InstalledApplication> application);
    void setSelectedMediaFolder(std::optional<Url> folder);
    void setSelectedTextFolder(std::optional<Url> folder);
    void setStatus(const QString &text);
    void setPendingDeletion(std::optional<DeletionRequest> request);
    void setLastReport(OperationReport report);
    void setUserNotice(std::optional<UserNotice> notice);
    void notify(const QString &title, const QString &message);

    /// The text under `key` in the current language, its placeholders filled.
    template <typename... Arguments> QString text(QStringView key, const Arguments &...arguments) const
    {
        return filledText(localizedText(key, m_language), arguments...);
    }

    /// Puts that text into the status line.
    template <typename... Arguments> void say(QStringView key, const Arguments &...arguments)
    {
        setStatus(text(key, arguments...));
    }

    /// The user turns to an application, whichever it will turn out to be. Answers the number of the turn.
    quint64 turnToAnotherApplication() { return ++m_turns; }
    /// Whether nothing was turned to since; an answer that comes after a later turn is dropped.
    bool isLatestTurn(quint64 turn) const { return turn == m_turns; }

    /// The busy check: false when another workflow runs. Otherwise the object is busy from here on and shows the
    /// progress text under `key`.
    bool begin(QStringView key);
    /// Shows the closing text and is idle again.
    void finish(const QString &closingText);
    void finish();

    AppLanguage m_language = AppLanguage::polish;
    SidebarSelection m_sidebarSelection = SidebarSelection::dashboard;
    QString m_applicationQuery;
    QString m_leftoverQuery;
    ListModel<InstalledApplication> m_applications;
    std::optional<InstalledApplication> m_selectedApplication;
    // Children: QML takes what a call hands it for its own where nothing else owns it.
    ListModel<ScanItem> m_associatedItems{this};
    ListModel<ScanItem> m_leftoverItems{this};
    ListModel<ScanItem> m_cleanerItems{this};
    ListModel<MediaFile> m_mediaFiles;
    std::optional<Url> m_selectedMediaFolder;
    QSet<MediaCategory> m_selectedMediaCategories;
    ListModel<TextFile> m_textFiles;
    std::optional<Url> m_selectedTextFolder;
    QSet<TextFileCategory> m_selectedTextFileCategories;
    std::optional<DashboardSnapshot> m_dashboardSnapshot;
    bool m_isProcessing = false;
    std::optional<double> m_progress;
    QString m_statusMessage;
    std::optional<DeletionRequest> m_pendingDeletion;
    std::optional<OperationReport> m_lastReport;
    std::optional<UserNotice> m_userNotice;
    quint64 m_turns = 0;

    const std::optional<MacDisk> m_macDisk;
    Workspace &m_workspace;
    const SystemFacts &m_systemFacts;
    std::unique_ptr<SystemInfoService> m_systemInfoService;
    /// Of what the last refresh of the dashboard did not wait for.
    QFutureWatcher<void> m_lateBattery;
    std::unique_ptr<ScanWorkflows> m_scans;
    std::unique_ptr<RemovalWorkflow> m_removal;
    // Goes first when the object is destroyed, and waits: scans use the scanners.
    BackgroundPools m_background;
};
