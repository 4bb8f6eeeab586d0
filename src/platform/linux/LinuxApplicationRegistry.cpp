#include "LinuxApplicationRegistry.h"

#include "BundleReader.h"
#include "FileSystem.h"

#include <QHash>
#include <QList>

#include <algorithm>

namespace {

// Direct children are at level 1, and the folders that are searched may lie two levels down.
constexpr int deepestApplicationLevel = 3;

// Where a bundle keeps applications, extensions and services of its own, which have data under their own
// identifiers.
constexpr const char *nestedBundleFolders[] = {
    "Contents/Applications", "Contents/Frameworks", "Contents/Helpers",   "Contents/Library/LoginItems",
    "Contents/MacOS",        "Contents/PlugIns",    "Contents/Resources", "Contents/XPCServices",
};
constexpr QByteArrayView nestedBundleExtensions[] = {"app", "appex", "xpc"};

constexpr QByteArrayView desktopEntrySuffix(".desktop");

bool hasExtension(QByteArrayView fileName, QByteArrayView extension)
{
    return extensionOf(fileName).compare(extension, Qt::CaseInsensitive) == 0;
}

bool isNestedBundleName(QByteArrayView fileName)
{
    return std::ranges::any_of(nestedBundleExtensions,
                               [fileName](QByteArrayView extension) { return hasExtension(fileName, extension); });
}

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
    Index(const FileSystem &fileSystem, const BundleReader &bundleReader)
        : m_fileSystem(fileSystem), m_bundleReader(bundleReader)
    {
    }

    std::optional<Url> urlForApplication(const QString &bundleIdentifier) const override
    {
        const auto url = m_applications.constFind(bundleIdentifier);
        return url == m_applications.constEnd() ? std::nullopt : std::optional(*url);
    }

    void addApplicationsIn(const Url &folder)
    {
        for (auto &entry : m_fileSystem.enumerate(folder)) {
            if (entry.level() == deepestApplicationLevel)
                entry.skipDescendants();
            if (hasExtension(entry.name(), "app"))
                addApplication(entry.url());
        }
    }

    void addDesktopEntriesIn(const Url &folder)
    {
        for (const auto &entry : m_fileSystem.enumerate(folder)) {
            if (!entry.name().endsWith(desktopEntrySuffix) || entry.type() == FileType::directory)
                continue;
            const auto url = entry.url();
            // An entry in a sub-folder has the folder's name in its id.
            auto id = url.path().sliced(folder.path().size() + 1).replace('/', '-');
            id.chop(desktopEntrySuffix.size());
            // What a removed package leaves of its entry may be a link that leads nowhere.
            if (QUtf8StringView(id).isValidUtf8() && m_fileSystem.exists(url))
                add(QString::fromUtf8(id), url);
        }
    }

private:
    void addApplication(const Url &url)
    {
        addBundle(url);
        for (const auto *folder : nestedBundleFolders) {
            for (const auto &entry : m_fileSystem.contentsOfDirectory(url / folder)) {
                if (isNestedBundleName(entry.name()))
                    addBundle(entry.url());
            }
        }
    }

    void addBundle(const Url &url)
    {
        const auto bundle = m_bundleReader.open(url);
        if (const auto identifier = bundle ? bundle->identifier() : std::nullopt)
            add(*identifier, url);
    }

    /// The first one that has an identifier keeps it.
    void add(const QString &identifier, const Url &url)
    {
        if (!m_applications.contains(identifier))
            m_applications.insert(identifier, url);
    }

    const FileSystem &m_fileSystem;
    const BundleReader &m_bundleReader;
    QHash<QString, Url> m_applications;
};

} // namespace

LinuxApplicationRegistry::LinuxApplicationRegistry(const DiskRoot &diskRoot, const FileSystem &fileSystem,
                                                   const BundleReader &bundleReader)
    : m_diskRoot(diskRoot), m_fileSystem(fileSystem), m_bundleReader(bundleReader)
{
}

std::unique_ptr<ApplicationIndex> LinuxApplicationRegistry::index() const
{
    const auto home = m_fileSystem.homeDirectory();
    auto index = std::make_unique<Index>(m_fileSystem, m_bundleReader);
    for (const auto &folder : {Url("/Applications"), home / "Applications", Url("/System/Applications")})
        index->addApplicationsIn(folder);
    for (const auto &folder : desktopEntryFolders(m_diskRoot, home))
        index->addDesktopEntriesIn(folder);
    return index;
}
