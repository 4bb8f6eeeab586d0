#include "ScanWorkflows.h"

#include "AllocatedSize.h"
#include "AppViewModel.h"
#include "BundleReader.h"
#include "FolderChooser.h"
#include "Platform.h"
#include "Workspace.h"

#include <QPointer>

namespace {

/// Smaller caches and logs are not worth a look.
constexpr qint64 smallestJunk = 1'048'576;
constexpr qint64 mostFinderResults = 50'000;

/// Access to a location that the user dropped, given back at the end of the scope.
class LocationAccess
{
public:
    LocationAccess(Workspace &workspace, Url location)
        : m_workspace(workspace), m_location(std::move(location)),
          m_isGranted(m_workspace.startAccessing(m_location))
    {
    }
    Q_DISABLE_COPY_MOVE(LocationAccess)
    ~LocationAccess()
    {
        if (m_isGranted)
            m_workspace.stopAccessing(m_location);
    }

private:
    Workspace &m_workspace;
    Url m_location;
    bool m_isGranted;
};

} // namespace

ScanWorkflows::ScanWorkflows(AppViewModel &state, const Platform &platform)
    : m_state(state), m_fileSystem(platform.fileSystem), m_bundleReader(platform.bundleReader),
      m_workspace(platform.workspace), m_folderChooser(platform.folderChooser),
      m_catalogScanner(platform.fileSystem, platform.bundleReader),
      m_associatedScanner(platform.fileSystem, platform.codeSignature),
      m_leftoverScanner(platform.fileSystem, platform.applicationRegistry), m_junkScanner(platform.fileSystem),
      m_mediaScanner(platform.fileSystem), m_textFileScanner(platform.fileSystem)
{
}

QCoro::Task<> ScanWorkflows::loadApplications(bool force)
{
    if (!force && !m_state.m_applications.isEmpty())
        co_return;

    if (!m_state.begin(u"loading_apps"))
        co_return;
    const QPointer state(&m_state);
    const auto scan = startCatalogScan();
    auto found = co_await scan;
    if (!state)
        co_return;
    m_state.m_applications.replace(std::move(found));
    m_state.finish({});
}

QCoro::Task<> ScanWorkflows::scanApplicationByName()
{
    if (m_state.applicationQuery().trimmed().isEmpty())
        co_return;

    const QPointer state(&m_state);
    auto loading = loadApplications(/*force*/ false);
    co_await loading;
    if (!state)
        co_return;
    const auto application =
        ApplicationCatalogScanner::findApplication(m_state.applicationQuery(), m_state.applications());
    if (!application) {
        m_state.m_associatedItems.clear();
        m_state.setStatus(m_state.text(u"no_match"));
        co_return;
    }
    m_state.setSelectedApplication(application);
    auto scanning = scan(*application);
    co_await scanning;
}

QCoro::Task<> ScanWorkflows::scan(InstalledApplication application)
{
    m_state.setSelectedApplication(application);
    m_state.m_associatedItems.clear();

    if (!m_state.begin(u"scanning"))
        co_return;
    const QPointer state(&m_state);
    const auto scan = m_state.m_background.runInBackground(TaskPriority::userInitiated,
                                                           &AssociatedFileScanner::scanAssociatedFiles,
                                                           &m_associatedScanner, application);
    auto found = co_await scan;
    if (!state)
        co_return;
    const auto closingText = found.isEmpty() ? m_state.text(u"no_files") : QString();
    m_state.m_associatedItems.replace(std::move(found));
    m_state.finish(closingText);
}

QCoro::Task<> ScanWorkflows::handleDroppedApplication(Url url)
{
    const LocationAccess access(m_workspace, url);
    const auto application = applicationFromDroppedBundle(url);
    if (!application) {
        m_state.m_associatedItems.clear();
        m_state.setSelectedApplication({});
        m_state.setStatus(m_state.text(u"drop_invalid_app"));
        co_return;
    }
    m_state.setApplicationQuery(application->name);
    auto scanning = scan(*application);
    co_await scanning;
}

std::optional<InstalledApplication> ScanWorkflows::applicationFromDroppedBundle(const Url &dropped) const
{
    const auto url = dropped.standardized();
    if (url.pathExtension().compare("app", Qt::CaseInsensitive) != 0)
        return std::nullopt;
    const auto bundle = m_bundleReader.open(url);
    if (!bundle)
        return std::nullopt;
    const auto identifier = bundle->identifier();
    if (!identifier || identifier->isEmpty())
        return std::nullopt;

    auto name = bundle->text(QStringLiteral("CFBundleDisplayName"));
    if (!name)
        name = bundle->text(QStringLiteral("CFBundleName"));
    if (!name)
        name = QString::fromUtf8(url.nameWithoutExtension());
    return InstalledApplication{*name, *identifier, url, allocatedSize(m_fileSystem, url),
                                url.path().startsWith("/System/")};
}

QCoro::Task<> ScanWorkflows::scanLeftovers()
{
    const QPointer state(&m_state);
    auto loading = loadApplications(/*force*/ false);
    co_await loading;
    if (!state)
        co_return;
    m_state.m_leftoverItems.clear();
    QSet<QString> knownIdentifiers;
    for (const auto &application : m_state.applications())
        knownIdentifiers.insert(application.bundleIdentifier);

    if (!m_state.begin(u"scanning"))
        co_return;
    const auto scan = m_state.m_background.runInBackground(
        TaskPriority::userInitiated, &LeftoverScanner::scanLeftovers, &m_leftoverScanner, knownIdentifiers);
    auto found = co_await scan;
    if (!state)
        co_return;
    const auto closingText = found.isEmpty() ? m_state.text(u"nothing_found") : QString();
    m_state.m_leftoverItems.replace(std::move(found));
    m_state.finish(closingText);
}

QCoro::Task<> ScanWorkflows::searchLeftovers()
{
    const auto query = m_state.leftoverQuery();
    m_state.m_leftoverItems.clear();
    if (!LeftoverScanner::validatedSearchName(query)) {
        m_state.setStatus(m_state.text(u"leftover_search_invalid"));
        co_return;
    }

    if (!m_state.begin(u"searching"))
        co_return;
    const QPointer state(&m_state);
    const auto search = m_state.m_background.runInBackground(
        TaskPriority::userInitiated, &LeftoverScanner::searchItems, &m_leftoverScanner, query);
    auto found = co_await search;
    if (!state)
        co_return;
    const auto closingText = found.isEmpty() ? m_state.text(u"leftover_search_no_results")
                                             : m_state.text(u"leftover_search_results", found.size());
    m_state.m_leftoverItems.replace(std::move(found));
    m_state.finish(closingText);
}

QCoro::Task<> ScanWorkflows::scanCleaner()
{
    m_state.m_cleanerItems.clear();

    if (!m_state.begin(u"scanning"))
        co_return;
    const QPointer state(&m_state);
    const auto scan = m_state.m_background.runInBackground(TaskPriority::utility, &JunkScanner::scanCachesAndLogs,
                                                           &m_junkScanner, smallestJunk);
    auto found = co_await scan;
    if (!state)
        co_return;
    const auto closingText = found.isEmpty() ? m_state.text(u"nothing_found") : QString();
    m_state.m_cleanerItems.replace(std::move(found));
    m_state.finish(closingText);
}

QCoro::Task<> ScanWorkflows::chooseMediaFolder()
{
    const QPointer state(&m_state);
    const auto choice =
        m_folderChooser.chooseFolder(m_state.text(u"media_choose_folder"), m_state.text(u"choose"));
    const auto folder = co_await choice;
    if (!state || !folder)
        co_return;
    m_state.setSelectedMediaFolder(folder);
    m_state.m_mediaFiles.clear();
    m_state.setStatus({});
}

QCoro::Task<> ScanWorkflows::chooseTextFolder()
{
    const QPointer state(&m_state);
    const auto choice = m_folderChooser.chooseFolder(m_state.text(u"text_choose_folder"), m_state.text(u"choose"));
    const auto folder = co_await choice;
    if (!state || !folder)
        co_return;
    m_state.setSelectedTextFolder(folder);
    m_state.m_textFiles.clear();
    m_state.setStatus({});
}

QCoro::Task<> ScanWorkflows::scanMedia()
{
    const auto folder = m_state.selectedMediaFolder();
    const auto categories = m_state.selectedMediaCategories();
    if (!folder)
        co_return m_state.setStatus(m_state.text(u"media_select_folder_first"));
    if (categories.isEmpty())
        co_return m_state.setStatus(m_state.text(u"media_select_category"));

    m_state.m_mediaFiles.clear();
    if (!m_state.begin(u"media_scanning"))
        co_return;
    const QPointer state(&m_state);
    const auto scan =
        m_state.m_background.runInBackground(TaskPriority::userInitiated, &MediaScanner::scanMediaFiles,
                                             &m_mediaScanner, *folder, categories, mostFinderResults);
    auto found = co_await scan;
    if (!state)
        co_return;
    const auto closingText =
        found.isEmpty() ? m_state.text(u"media_no_results") : m_state.text(u"media_results", found.size());
    m_state.m_mediaFiles.replace(std::move(found));
    m_state.finish(closingText);
}

QCoro::Task<> ScanWorkflows::scanTextFiles()
{
    const auto folder = m_state.selectedTextFolder();
    const auto categories = m_state.selectedTextFileCategories();
    if (!folder)
        co_return m_state.setStatus(m_state.text(u"text_select_folder_first"));
    if (categories.isEmpty())
        co_return m_state.setStatus(m_state.text(u"text_select_category"));

    m_state.m_textFiles.clear();
    if (!m_state.begin(u"text_scanning"))
        co_return;
    const QPointer state(&m_state);
    const auto scan =
        m_state.m_background.runInBackground(TaskPriority::userInitiated, &TextFileScanner::scanTextFiles,
                                             &m_textFileScanner, *folder, categories, mostFinderResults);
    auto found = co_await scan;
    if (!state)
        co_return;
    const auto closingText =
        found.isEmpty() ? m_state.text(u"text_no_results") : m_state.text(u"text_results", found.size());
    m_state.m_textFiles.replace(std::move(found));
    m_state.finish(closingText);
}

QFuture<QList<InstalledApplication>> ScanWorkflows::startCatalogScan()
{
    return m_state.m_background.runInBackground(TaskPriority::userInitiated,
                                                &ApplicationCatalogScanner::scanApplications, &m_catalogScanner);
}
