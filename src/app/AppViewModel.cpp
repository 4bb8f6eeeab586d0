#include "AppViewModel.h"

#include "DiskText.h"
#include "Platform.h"
#include "RemovalWorkflow.h"
#include "ScanWorkflows.h"
#include "SystemFacts.h"
#include "SystemInfoService.h"
#include "Workspace.h"

#include <QFutureWatcher>

#include <algorithm>
#include <concepts>

namespace {

template <typename Value> QVariant variantOf(const std::optional<Value> &value)
{
    return value ? QVariant::fromValue(*value) : QVariant();
}

template <typename Category> QSet<Category> everyCase()
{
    const auto cases = allCases<Category>();
    return {cases.begin(), cases.end()};
}

/// The numbers of the chosen categories in the order of their declaration.
template <typename Category> QList<int> numbersOf(const QSet<Category> &chosen)
{
    QList<int> numbers;
    for (const auto category : allCases<Category>()) {
        if (chosen.contains(category))
            numbers.append(static_cast<int>(category));
    }
    return numbers;
}

template <typename Category> QSet<Category> toggled(QSet<Category> chosen, Category category)
{
    if (!chosen.remove(category))
        chosen.insert(category);
    return chosen;
}

std::optional<QByteArray> identity(const std::optional<InstalledApplication> &application)
{
    return application ? std::optional(application->id()) : std::nullopt;
}

bool isLineBreak(QChar character)
{
    const auto code = character.unicode();
    return (code >= 0x0a && code <= 0x0d) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

/// Whether nothing but spaces and tabs is left; a line break counts as something.
bool isBlankLine(const QString &text)
{
    return std::ranges::all_of(text, [](QChar c) { return c.isSpace() && !isLineBreak(c); });
}

bool isBlank(const QString &text)
{
    return std::ranges::all_of(text, [](QChar c) { return c.isSpace(); });
}

} // namespace

AppViewModel::AppViewModel(const Platform &platform, QObject *parent)
    : QObject(parent), m_selectedMediaCategories(everyCase<MediaCategory>()),
      m_selectedTextFileCategories(everyCase<TextFileCategory>()),
      m_macDisk(platform.macDisk ? std::optional(*platform.macDisk) : std::nullopt),
      m_workspace(platform.workspace), m_systemFacts(platform.systemFacts),
      m_systemInfoService(std::make_unique<SystemInfoService>(platform.fileSystem, platform.systemFacts)),
      m_scans(std::make_unique<ScanWorkflows>(*this, platform)),
      m_removal(std::make_unique<RemovalWorkflow>(*this, platform)), m_background(platform.backgroundPriority)
{
    connectLists();
    connectDerivedProperties();
    connectLateBattery();
    warnOfReadOnlyDisk();
}

AppViewModel::~AppViewModel() = default;

void AppViewModel::connectLists()
{
    connect(&m_applications, &ListModelBase::changed, this, &AppViewModel::applicationsChanged);
    connect(&m_associatedItems, &ListModelBase::changed, this, &AppViewModel::associatedItemsChanged);
    connect(&m_leftoverItems, &ListModelBase::changed, this, &AppViewModel::leftoverItemsChanged);
    connect(&m_cleanerItems, &ListModelBase::changed, this, &AppViewModel::cleanerItemsChanged);
    connect(&m_mediaFiles, &ListModelBase::changed, this, &AppViewModel::mediaFilesChanged);
    connect(&m_textFiles, &ListModelBase::changed, this, &AppViewModel::textFilesChanged);
}

void AppViewModel::connectDerivedProperties()
{
    for (const auto source :
         {&AppViewModel::isProcessingChanged, &AppViewModel::applicationQueryChanged,
          &AppViewModel::leftoverQueryChanged, &AppViewModel::selectedMediaFolderChanged,
          &AppViewModel::selectedMediaCategoriesChanged, &AppViewModel::selectedTextFolderChanged,
          &AppViewModel::selectedTextFileCategoriesChanged, &AppViewModel::associatedItemsChanged,
          &AppViewModel::leftoverItemsChanged, &AppViewModel::cleanerItemsChanged})
        connect(this, source, this, &AppViewModel::enablingChanged);
    for (const auto source : {&AppViewModel::applicationsChanged, &AppViewModel::selectedApplicationChanged})
        connect(this, source, this, &AppViewModel::selectedApplicationRowChanged);
}

void AppViewModel::connectLateBattery()
{
    connect(&m_lateBattery, &QFutureWatcherBase::finished, this, [this] {
        m_dashboardSnapshot->battery = m_systemInfoService->batteryInfo();
        Q_EMIT dashboardSnapshotChanged();
    });
}

// Before anything is found that could be ticked.
void AppViewModel::warnOfReadOnlyDisk()
{
    if (m_macDisk && m_macDisk->isReadOnly)
        notify(diskText(DiskText::readOnlyTitle, m_language), diskText(DiskText::readOnlyMessage, m_language));
}

// The fields

template <typename Field, typename Value>
void AppViewModel::set(Field AppViewModel::*field, Value &&value, void (AppViewModel::*changed)())
{
    if constexpr (std::equality_comparable<Field>) {
        if (this->*field == value)
            return;
    }
    this->*field = std::forward<Value>(value);
    Q_EMIT(this->*changed)();
}

void AppViewModel::setLanguage(AppLanguage language)
{
    set(&AppViewModel::m_language, language, &AppViewModel::languageChanged);
}

void AppViewModel::setSidebarSelection(SidebarSelection section)
{
    set(&AppViewModel::m_sidebarSelection, section, &AppViewModel::sidebarSelectionChanged);
}

void AppViewModel::setApplicationQuery(const QString &query)
{
    set(&AppViewModel::m_applicationQuery, query, &AppViewModel::applicationQueryChanged);
}

void AppViewModel::setLeftoverQuery(const QString &query)
{
    set(&AppViewModel::m_leftoverQuery, query, &AppViewModel::leftoverQueryChanged);
}

void AppViewModel::setSelectedApplication(std::optional<InstalledApplication> application)
{
    set(&AppViewModel::m_selectedApplication, std::move(application), &AppViewModel::selectedApplicationChanged);
}

void AppViewModel::setSelectedMediaFolder(std::optional<Url> folder)
{
    set(&AppViewModel::m_selectedMediaFolder, std::move(folder), &AppViewModel::selectedMediaFolderChanged);
}

void AppViewModel::setSelectedTextFolder(std::optional<Url> folder)
{
    set(&AppViewModel::m_selectedTextFolder, std::move(folder), &AppViewModel::selectedTextFolderChanged);
}

void AppViewModel::setStatus(const QString &text)
{
    set(&AppViewModel::m_statusMessage, text, &AppViewModel::statusMessageChanged);
}

void AppViewModel::setPendingDeletion(std::optional<DeletionRequest> request)
{
    set(&AppViewModel::m_pendingDeletion, std::move(request), &AppViewModel::pendingDeletionChanged);
}

void AppViewModel::setLastReport(OperationReport report)
{
    set(&AppViewModel::m_lastReport, std::move(report), &AppViewModel::lastReportChanged);
}

void AppViewModel::setUserNotice(std::optional<UserNotice> notice)
{
    set(&AppViewModel::m_userNotice, std::move(notice), &AppViewModel::userNoticeChanged);
}

void AppViewModel::notify(const QString &title, const QString &message)
{
    setUserNotice(UserNotice{QUuid::createUuid(), title, message});
}

QVariant AppViewModel::selectedApplicationValue() const
{
    return variantOf(m_selectedApplication);
}

QVariant AppViewModel::selectedMediaFolderValue() const
{
    return variantOf(m_selectedMediaFolder);
}

QList<int> AppViewModel::selectedMediaCategoryValues() const
{
    return numbersOf(m_selectedMediaCategories);
}

QVariant AppViewModel::selectedTextFolderValue() const
{
    return variantOf(m_selectedTextFolder);
}

QList<int> AppViewModel::selectedTextFileCategoryValues() const
{
    return numbersOf(m_selectedTextFileCategories);
}

QVariant AppViewModel::dashboardSnapshotValue() const
{
    return variantOf(m_dashboardSnapshot);
}

QVariant AppViewModel::progressValue() const
{
    return variantOf(m_progress);
}

QVariant AppViewModel::pendingDeletionValue() const
{
    return variantOf(m_pendingDeletion);
}

QVariant AppViewModel::lastReportValue() const
{
    return variantOf(m_lastReport);
}

QVariant AppViewModel::userNoticeValue() const
{
    return variantOf(m_userNotice);
}

// What follows from them

bool AppViewModel::canScanByName() const
{
    return canScan() && !isBlankLine(m_applicationQuery);
}

bool AppViewModel::canSearchLeftovers() const
{
    return canScan() && !isBlank(m_leftoverQuery);
}

bool AppViewModel::canScanMedia() const
{
    return canScan() && m_selectedMediaFolder && !m_selectedMediaCategories.isEmpty();
}

bool AppViewModel::canScanTextFiles() const
{
    return canScan() && m_selectedTextFolder && !m_selectedTextFileCategories.isEmpty();
}

ListModel<ScanItem> AppViewModel::*AppViewModel::itemsOf(ScanScope scope)
{
    switch (scope) {
    case ScanScope::uninstaller:
        return &AppViewModel::m_associatedItems;
    case ScanScope::leftovers:
        return &AppViewModel::m_leftoverItems;
    case ScanScope::cleaner:
        break;
    }
    return &AppViewModel::m_cleanerItems;
}

bool AppViewModel::canDelete(ScanScope scope) const
{
    return canScan() && (this->*itemsOf(scope)).selectedCount() > 0;
}

QList<int> AppViewModel::deletableScopes() const
{
    QList<int> numbers;
    for (const auto scope : allCases<ScanScope>()) {
        if (canDelete(scope))
            numbers.append(static_cast<int>(scope));
    }
    return numbers;
}

QString AppViewModel::diskTitle() const
{
    if (!m_macDisk)
        return {};
    return m_macDisk->isHomeAlone ? m_macDisk->name : m_macDisk->name + QStringLiteral(", ") + m_macDisk->homeName;
}

int AppViewModel::selectedApplicationRow() const
{
    if (!m_selectedApplication)
        return -1;
    const auto &rows = m_applications.rows();
    const auto row = std::ranges::find(rows, m_selectedApplication->id(), &InstalledApplication::id);
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
}

// The operations

void AppViewModel::loadApplications(bool force)
{
    m_scans->loadApplications(force);
}

void AppViewModel::scanApplicationByName()
{
    m_scans->scanApplicationByName();
}

void AppViewModel::scan(const InstalledApplication &application)
{
    m_scans->scan(application);
}

void AppViewModel::selectApplication(const std::optional<InstalledApplication> &application)
{
    if (identity(m_selectedApplication) == identity(application))
        return;
    turnToAnotherApplication();
    m_associatedItems.clear();
    setStatus({});
    setSelectedApplication(application);
}

void AppViewModel::selectApplicationAt(int row)
{
    if (row >= 0 && row < m_applications.count())
        selectApplication(m_applications.rows().at(row));
}

void AppViewModel::handleDroppedApplication(const Url &url)
{
    m_scans->handleDroppedApplication(url);
}

void AppViewModel::scanLeftovers()
{
    m_scans->scanLeftovers();
}

void AppViewModel::searchLeftovers()
{
    m_scans->searchLeftovers();
}

void AppViewModel::scanCleaner()
{
    m_scans->scanCleaner();
}

void AppViewModel::chooseMediaFolder()
{
    m_scans->chooseMediaFolder();
}

void AppViewModel::chooseTextFolder()
{
    m_scans->chooseTextFolder();
}

void AppViewModel::toggleMediaCategory(MediaCategory category)
{
    set(&AppViewModel::m_selectedMediaCategories, toggled(m_selectedMediaCategories, category),
        &AppViewModel::selectedMediaCategoriesChanged);
}

void AppViewModel::toggleTextFileCategory(TextFileCategory category)
{
    set(&AppViewModel::m_selectedTextFileCategories, toggled(m_selectedTextFileCategories, category),
        &AppViewModel::selectedTextFileCategoriesChanged);
}

void AppViewModel::scanMedia()
{
    m_scans->scanMedia();
}

void AppViewModel::scanTextFiles()
{
    m_scans->scanTextFiles();
}

void AppViewModel::requestDeletion(ScanScope scope)
{
    m_removal->requestDeletion(scope);
}

void AppViewModel::confirmDeletion(const DeletionRequest &request)
{
    m_removal->confirmDeletion(request);
}

void AppViewModel::cancelDeletion()
{
    setPendingDeletion({});
}

void AppViewModel::dismissNotice()
{
    setUserNotice({});
}

void AppViewModel::refreshDashboard()
{
    auto snapshot = m_systemInfoService->snapshot();
    // Of a copy, the volume's own name tells nothing.
    if (m_macDisk)
        snapshot.storage.volumeName = m_macDisk->name;
    set(&AppViewModel::m_dashboardSnapshot, std::move(snapshot), &AppViewModel::dashboardSnapshotChanged);
    if (const auto late = m_systemFacts.latePowerReading())
        m_lateBattery.setFuture(*late);
}

void AppViewModel::revealItem(ScanScope scope, int row)
{
    reveal(this->*itemsOf(scope), row);
}

void AppViewModel::revealMediaFile(int row)
{
    reveal(m_mediaFiles, row);
}

void AppViewModel::revealTextFile(int row)
{
    reveal(m_textFiles, row);
}

template <typename Item> void AppViewModel::reveal(const ListModel<Item> &items, int row)
{
    if (row >= 0 && row < items.count())
        m_workspace.reveal(items.rows().at(row).url);
}

// The common sequence of a workflow

bool AppViewModel::begin(QStringView key)
{
    if (m_isProcessing)
        return false;
    set(&AppViewModel::m_isProcessing, true, &AppViewModel::isProcessingChanged);
    set(&AppViewModel::m_progress, std::nullopt, &AppViewModel::progressChanged);
    setStatus(text(key));
    return true;
}

void AppViewModel::finish(const QString &closingText)
{
    setStatus(closingText);
    finish();
}

void AppViewModel::finish()
{
    set(&AppViewModel::m_isProcessing, false, &AppViewModel::isProcessingChanged);
}
