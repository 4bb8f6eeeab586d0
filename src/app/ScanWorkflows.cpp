#include "ScanWorkflows.h"

#include "AppViewModel.h"
#include "DiskText.h"
#include "FolderChooser.h"
#include "Platform.h"
#include "WhileAlive.h"
#include "Workspace.h"

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

AssociatedFileScanner::NamesOnDisk namesOn(const Platform &platform)
{
    using enum AssociatedFileScanner::NamesOnDisk;
    return platform.macDisk ? asOnMac : asSpelled;
}

} // namespace

ScanWorkflows::ScanWorkflows(AppViewModel &state, const Platform &platform)
    : m_state(state), m_workspace(platform.workspace), m_folderChooser(platform.folderChooser),
      m_applicationReader(platform.fileSystem, platform.bundleReader),
      m_catalogScanner(platform.fileSystem, platform.bundleReader),
      m_associatedScanner(platform.fileSystem, platform.codeSignature, namesOn(platform)),
      m_leftoverScanner(platform.fileSystem, platform.applicationRegistry), m_junkScanner(platform.fileSystem),
      m_mediaScanner(platform.fileSystem), m_textFileScanner(platform.fileSystem)
{
}

QCoro::Task<> ScanWorkflows::loadApplications(bool force)
{
    if (!force && !m_state.m_applications.isEmpty())
        co_return;
    auto filling = fill(m_state.m_applications, {.progress = u"loading_apps"}, TaskPriority::userInitiated,
                        &ApplicationCatalogScanner::scanApplications, &m_catalogScanner);
    co_await filling;
}

QCoro::Task<> ScanWorkflows::scanApplicationByName()
{
    if (m_state.applicationQuery().trimmed().isEmpty())
        co_return;

    const auto turn = m_state.turnToAnotherApplication();
    auto loading = loadApplications(/*force*/ false);
    co_await loading;
    if (!m_state.isLatestTurn(turn))
        co_return;
    const auto application =
        ApplicationCatalogScanner::findApplication(m_state.applicationQuery(), m_state.applications());
    if (!application) {
        m_state.m_associatedItems.clear();
        co_return m_state.say(u"no_match");
    }
    auto scanning = scan(*application);
    co_await scanning;
}

QCoro::Task<> ScanWorkflows::scan(InstalledApplication application)
{
    m_state.turnToAnotherApplication();
    m_state.setSelectedApplication(application);
    m_state.m_associatedItems.clear();
    const auto isWanted = [this, id = application.id()] {
        const auto &selected = m_state.selectedApplication();
        return selected && selected->id() == id;
    };
    return fill(m_state.m_associatedItems, {.progress = u"scanning", .nothing = u"no_files", .isWanted = isWanted},
                TaskPriority::userInitiated, &AssociatedFileScanner::scanAssociatedFiles, &m_associatedScanner,
                application);
}

QCoro::Task<> ScanWorkflows::handleDroppedApplication(Url url)
{
    const LocationAccess access(m_workspace, url);
    const auto location = m_workspace.locationOnDisk(url);
    if (!location)
        co_return;
    const auto turn = m_state.turnToAnotherApplication();
    const auto query = m_state.applicationQuery();
    const auto bundle = location->standardized();
    auto reading =
        whileAlive(&m_state, m_state.m_background.runInBackground(
                                 TaskPriority::userInitiated, &ApplicationReader::applicationAt,
                                 &m_applicationReader, bundle, ApplicationReader::isInSystemFolder(bundle)));
    const auto application = co_await reading;
    if (!m_state.isLatestTurn(turn))
        co_return;
    if (!application) {
        m_state.m_associatedItems.clear();
        m_state.setSelectedApplication({});
        co_return m_state.say(u"drop_invalid_app");
    }
    // What was typed meanwhile stays.
    if (m_state.applicationQuery() == query)
        m_state.setApplicationQuery(application->name);
    auto scanning = scan(*application);
    co_await scanning;
}

QCoro::Task<> ScanWorkflows::scanLeftovers()
{
    // Everything would look as if its application were gone.
    if (m_state.m_macDisk && m_state.m_macDisk->isHomeAlone) {
        m_state.m_leftoverItems.clear();
        co_return m_state.setStatus(diskText(DiskText::nothingKnownOfApplications, m_state.language()));
    }
    auto loading = loadApplications(/*force*/ false);
    co_await loading;
    m_state.m_leftoverItems.clear();
    QSet<QString> knownIdentifiers;
    for (const auto &application : m_state.applications())
        knownIdentifiers.insert(application.bundleIdentifier);

    auto filling = fill(m_state.m_leftoverItems, {u"scanning", u"nothing_found"}, TaskPriority::utility,
                        &LeftoverScanner::scanLeftovers, &m_leftoverScanner, knownIdentifiers);
    co_await filling;
}

QCoro::Task<> ScanWorkflows::searchLeftovers()
{
    const auto query = m_state.leftoverQuery();
    m_state.m_leftoverItems.clear();
    if (!LeftoverScanner::validatedSearchName(query))
        co_return m_state.say(u"leftover_search_invalid");
    auto filling =
        fill(m_state.m_leftoverItems, {u"searching", u"leftover_search_no_results", u"leftover_search_results"},
             TaskPriority::userInitiated, &LeftoverScanner::searchItems, &m_leftoverScanner, query);
    co_await filling;
}

QCoro::Task<> ScanWorkflows::scanCleaner()
{
    m_state.m_cleanerItems.clear();
    return fill(m_state.m_cleanerItems, {u"scanning", u"nothing_found"}, TaskPriority::utility,
                &JunkScanner::scanCachesAndLogs, &m_junkScanner, smallestJunk);
}

QCoro::Task<> ScanWorkflows::chooseMediaFolder()
{
    return chooseFolder(u"media_choose_folder", &AppViewModel::setSelectedMediaFolder, m_state.m_mediaFiles);
}

QCoro::Task<> ScanWorkflows::chooseTextFolder()
{
    return chooseFolder(u"text_choose_folder", &AppViewModel::setSelectedTextFolder, m_state.m_textFiles);
}

QCoro::Task<> ScanWorkflows::scanMedia()
{
    const auto folder = m_state.selectedMediaFolder();
    const auto categories = m_state.selectedMediaCategories();
    if (!folder)
        co_return m_state.say(u"media_select_folder_first");
    if (categories.isEmpty())
        co_return m_state.say(u"media_select_category");

    m_state.m_mediaFiles.clear();
    const auto isWanted = [this, folder] { return m_state.selectedMediaFolder() == folder; };
    auto filling = fill(m_state.m_mediaFiles, {u"media_scanning", u"media_no_results", u"media_results", isWanted},
                        TaskPriority::userInitiated, &MediaScanner::scanMediaFiles, &m_mediaScanner, *folder,
                        categories, mostFinderResults);
    co_await filling;
}

QCoro::Task<> ScanWorkflows::scanTextFiles()
{
    const auto folder = m_state.selectedTextFolder();
    const auto categories = m_state.selectedTextFileCategories();
    if (!folder)
        co_return m_state.say(u"text_select_folder_first");
    if (categories.isEmpty())
        co_return m_state.say(u"text_select_category");

    m_state.m_textFiles.clear();
    const auto isWanted = [this, folder] { return m_state.selectedTextFolder() == folder; };
    auto filling = fill(m_state.m_textFiles, {u"text_scanning", u"text_no_results", u"text_results", isWanted},
                        TaskPriority::userInitiated, &TextFileScanner::scanTextFiles, &m_textFileScanner, *folder,
                        categories, mostFinderResults);
    co_await filling;
}

QFuture<QList<InstalledApplication>> ScanWorkflows::startCatalogScan()
{
    return m_state.m_background.runInBackground(TaskPriority::userInitiated,
                                                &ApplicationCatalogScanner::scanApplications, &m_catalogScanner);
}

template <typename Row, typename Function, typename... Arguments>
QCoro::Task<> ScanWorkflows::fill(ListModel<Row> &list, Search search, TaskPriority priority, Function function,
                                  Arguments... arguments)
{
    if (!m_state.begin(search.progress))
        co_return;
    auto work =
        whileAlive(&m_state, m_state.m_background.runInBackground(priority, function, std::move(arguments)...));
    auto found = co_await work;
    if (search.isWanted && !search.isWanted())
        co_return m_state.finish({});
    const auto closingText =
        found.isEmpty() ? m_state.text(search.nothing) : m_state.text(search.found, found.size());
    list.replace(std::move(found));
    m_state.finish(closingText);
}

template <typename Row>
QCoro::Task<> ScanWorkflows::chooseFolder(QStringView titleKey,
                                          void (AppViewModel::*setFolder)(std::optional<Url>),
                                          ListModel<Row> &list)
{
    auto choice =
        whileAlive(&m_state, m_folderChooser.chooseFolder(m_state.text(titleKey), m_state.text(u"choose")));
    const auto location = co_await choice;
    const auto folder = location ? m_workspace.locationOnDisk(*location) : std::nullopt;
    if (!folder)
        co_return;
    (m_state.*setFolder)(folder);
    list.clear();
    m_state.setStatus({});
}
