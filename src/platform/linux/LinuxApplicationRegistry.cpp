#include "LinuxApplicationRegistry.h"

#include "BundleSearch.h"
#include "FileNames.h"
#include "FileSystem.h"
#include "OrderedResults.h"
#include "Spelling.h"

#include <QHash>
#include <QList>

namespace {

using Links = BundleSearch::Links;

enum class Base { root, home };

// Where programs are kept on the Mac. The levels are those that installers use and people sort their programs into,
// and one more.
constexpr struct
{
    Base base;
    const char *folder;
    int levels;
    Links links;
} places[] = {
    {Base::root, "Applications", 8, Links::followed},
    {Base::home, "Applications", 8, Links::followed},
    {Base::root, "System/Applications", 8, Links::kept},
    {Base::root, "System/Library/CoreServices", 5, Links::kept},
    // Preference panes, services, input methods and whatever else extends a program or the system: each kind has a
    // folder of its own, and some vendors have one, too.
    {Base::root, "Library", 5, Links::kept},
    {Base::home, "Library", 5, Links::kept},
    {Base::root, "Library/Application Support", 8, Links::kept},
    {Base::home, "Library/Application Support", 8, Links::kept},
    // What lies in these belongs to a program that may be gone.
    {Base::root, "Library/Caches", 0, Links::kept},
    {Base::home, "Library/Caches", 0, Links::kept},
    {Base::home, "Library/Containers", 0, Links::kept},
    {Base::home, "Library/Group Containers", 0, Links::kept},
    // Programs that were never installed, but opened where the browser or the user left them.
    {Base::home, "", 3, Links::kept},
    {Base::home, "Desktop", 5, Links::followed},
    {Base::home, "Documents", 5, Links::kept},
    {Base::home, "Downloads", 5, Links::followed},
    {Base::root, "Users/Shared", 5, Links::kept},
    // Package managers.
    {Base::root, "opt", 5, Links::kept},
    {Base::root, "usr/local", 5, Links::kept},
    // The volumes, and what lies open on them, as on a disk image.
    {Base::root, "Volumes", 3, Links::followed},
};
constexpr int levelsOfApplicationFolders = 8;

/// In the order in which they are searched.
QList<BundleSearch::Place> placesOn(const FileSystem &fileSystem)
{
    QList<BundleSearch::Place> result;
    for (const auto &[base, folder, levels, links] : places) {
        const auto start = base == Base::home ? fileSystem.homeDirectory() : Url("/");
        result.append({start / folder, levels, links});
    }
    for (const auto &volume : fileSystem.contentsOfDirectory(Url("/Volumes")))
        result.append({volume.url() / "Applications", levelsOfApplicationFolders, Links::followed});
    return result;
}

constexpr QByteArrayView desktopEntrySuffix(".desktop");

/// The folders for desktop entries, the user's own first. The base directory specification has paths that are not
/// absolute ignored.
QList<Url> desktopEntryFolders(const DiskRoot &diskRoot, const Url &home)
{
    QList<Url> folders;
    const auto add = [&folders](const std::optional<Url> &dataFolder) {
        if (dataFolder)
            folders.append(*dataFolder / "applications");
    };
    const auto dataHome = qgetenv("XDG_DATA_HOME");
    add(dataHome.isEmpty() ? home / ".local/share" : diskRoot.urlFor(dataHome));
    const auto dataFolders = qgetenv("XDG_DATA_DIRS");
    const auto paths = dataFolders.isEmpty() ? QByteArray("/usr/local/share:/usr/share") : dataFolders;
    for (const auto &path : paths.split(':'))
        add(diskRoot.urlFor(path));
    return folders;
}

class Index : public ApplicationIndex
{
public:
    std::optional<Url> urlForApplication(const QString &bundleIdentifier) const override
    {
        const auto url = m_applications.constFind(caselessForm(bundleIdentifier));
        return url == m_applications.constEnd() ? std::nullopt : std::optional(*url);
    }

    /// The first one that has an identifier keeps it.
    void add(const QString &identifier, const Url &url)
    {
        const auto key = caselessForm(identifier);
        if (!m_applications.contains(key))
            m_applications.insert(key, url);
    }

private:
    /// By the caseless form of their identifiers.
    QHash<QString, Url> m_applications;
};

void addDesktopEntriesIn(const QList<Url> &folders, const FileSystem &fileSystem, Index &index)
{
    struct Entry
    {
        QString id;
        Url url;
    };
    OrderedResults<Entry> found;
    fileSystem.walk(folders, [&](FolderPart &part) {
        const auto &folder = folders[static_cast<qsizetype>(part.walkedFolder())];
        for (const auto &entry : part) {
            if (!entry.name().endsWith(desktopEntrySuffix) || entry.type() == FileType::directory)
                continue;
            const auto url = entry.url();
            // An entry in a sub-folder has the folder's name in its id.
            auto id = url.path().sliced(folder.path().size() + 1).replace('/', '-');
            id.chop(desktopEntrySuffix.size());
            // What a removed package leaves of its entry may be a link that leads nowhere.
            if (const auto text = decodedFileName(id); text && fileSystem.exists(url))
                found.add(entry.place(), {*text, url});
        }
    });
    for (const auto &[id, url] : found.take())
        index.add(id, url);
}

} // namespace

LinuxApplicationRegistry::LinuxApplicationRegistry(const DiskRoot &diskRoot, const FileSystem &fileSystem,
                                                   std::stop_token stop)
    : m_diskRoot(diskRoot), m_fileSystem(fileSystem), m_stop(std::move(stop))
{
}

std::unique_ptr<ApplicationIndex> LinuxApplicationRegistry::index() const
{
    auto index = std::make_unique<Index>();
    BundleSearch search(
        m_fileSystem, [&index](const QString &identifier, const Url &url) { index->add(identifier, url); },
        m_stop);
    search.search(placesOn(m_fileSystem));
    addDesktopEntriesIn(desktopEntryFolders(m_diskRoot, m_fileSystem.homeDirectory()), m_fileSystem, *index);
    return index;
}
