#include "MacDiskFinder.h"

#include "Text.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

namespace fs = std::filesystem;

const Url users("/Users");

// In "Users", and nobody's own.
constexpr QByteArrayView notHomes[] = {"Shared", "Guest"};

bool anyFolderOf(const FileSystem &disk, const Url &parent, std::initializer_list<const char *> names)
{
    return std::ranges::any_of(names, [&](const char *name) { return disk.isDirectory(parent / name); });
}

bool isMacDisk(const FileSystem &disk)
{
    return disk.isDirectory(users) && anyFolderOf(disk, Url("/"), {"Applications", "Library", "System"});
}

/// Whether the disk's root is what should be a folder of its "Users".
bool isHomeAlone(const FileSystem &disk)
{
    return !disk.isDirectory(users) && !disk.isDirectory(Url("/System"))
           && anyFolderOf(disk, Url("/Library"), {"Preferences", "Caches", "Application Support"});
}

/// Folders of "Users" with a "Library", or that cannot be looked into.
QList<Url> homesOn(const FileSystem &disk)
{
    QList<Url> homes;
    for (const auto &entry : disk.contentsOfDirectory(users)) {
        const bool isFolder = entry.type() == FileType::directory || entry.type() == FileType::symbolicLink;
        if (isFolder && std::ranges::find(notHomes, entry.name()) == std::end(notHomes)
            && !disk.isGone(entry.url() / "Library"))
            homes.append(entry.url());
    }
    std::ranges::sort(homes, {}, &Url::path);
    return homes;
}

bool isReadableHome(const FileSystem &disk, const Url &home)
{
    return disk.isDirectory(home / "Library") && disk.isExecutable(home / "Library");
}

QString listed(const QStringList &names)
{
    return names.join(QStringLiteral(", "));
}

/// The names of what lies in a folder, some of them, for a person who wonders what was looked at.
QString whatLiesIn(const FileSystem &disk, const Url &folder)
{
    constexpr qsizetype mostNames = 8;
    QStringList names;
    for (const auto &entry : disk.contentsOfDirectory(folder)) {
        names.append(entry.url().displayName());
        // Of a folder with a million entries the first will do.
        if (names.size() > 100)
            break;
    }
    names.sort();
    if (names.size() > mostNames)
        names = names.first(mostNames - 1) + QStringList{QStringLiteral("…"), names.last()};
    return listed(names);
}

QString namesOf(const QList<Url> &homes)
{
    QStringList names;
    for (const auto &home : homes)
        names.append(home.displayName());
    return listed(names);
}

} // namespace

QString DiskRefusal::inWords(AppLanguage language) const
{
    auto filling = values;
    for (auto &value : filling) {
        if (value.isEmpty())
            value = diskText(DiskText::nothing, language);
    }
    return TextFormat::filled(diskText(reason, language), filling);
}

MacDiskFinder::MacDiskFinder(DiskOpener openDisk, const QByteArray &ownHome)
    : m_openDisk(std::move(openDisk)), m_ownHome(ownHome)
{
}

std::variant<FoundDisk, DiskRefusal> MacDiskFinder::find(const QByteArray &folder,
                                                         const std::optional<QByteArray> &home) const
{
    std::error_code error;
    const auto canonical = QByteArray::fromStdString(fs::canonical(folder.toStdString(), error).native());
    if (error == std::errc::permission_denied)
        return DiskRefusal{DiskText::mayNotBeRead, {decodedText(folder)}};
    if (error || !fs::is_directory(canonical.toStdString(), error))
        return DiskRefusal{DiskText::noSuchFolder, {decodedText(folder)}};
    if (canonical == "/")
        return DiskRefusal{DiskText::ownDisk, {QStringLiteral("/")}};
    if (const auto refusal = whyNotReadable(canonical))
        return *refusal;
    const auto around = findAround(canonical);
    return around ? *around : findIn(canonical, home);
}

std::optional<DiskRefusal> MacDiskFinder::whyNotReadable(const QByteArray &folder) const
{
    std::error_code error;
    const fs::directory_iterator listing(folder.toStdString(), error);
    if (error || !m_openDisk(folder)->isExecutable(Url("/")))
        return DiskRefusal{DiskText::mayNotBeRead, {decodedText(folder)}};
    return std::nullopt;
}

/// A home folder on a Mac's disk is that disk's, and what is inside of a home belongs to the home. Absent where the folder
/// lies in no home.
std::optional<std::variant<FoundDisk, DiskRefusal>> MacDiskFinder::findAround(const QByteArray &folder) const
{
    for (auto around = Url(folder).parent(); around.path() != "/"; around = around.parent()) {
        const auto disk = m_openDisk(around.path());
        const auto inside = Url(folder.mid(around.path().size()));
        const auto insideOf = [&](const QByteArray &home) {
            return DiskRefusal{DiskText::insideAnotherHome, {decodedText(folder), decodedText(home)}};
        };
        if (isMacDisk(*disk)) {
            auto home = inside;
            while (home.path() != "/" && home.parent() != users)
                home = home.parent();
            if (home.path() == "/" || !homesOn(*disk).contains(home))
                continue;
            if (home != inside)
                return insideOf(around.path() + home.path());
            return choose({around.path(), false, {home}}, home.path());
        }
        if (around.path() != m_ownHome && isHomeAlone(*disk))
            return insideOf(around.path());
    }
    return std::nullopt;
}

std::variant<FoundDisk, DiskRefusal> MacDiskFinder::findIn(const QByteArray &folder,
                                                           const std::optional<QByteArray> &home) const
{
    const auto disk = m_openDisk(folder);
    const auto shown = decodedText(folder);
    if (isHomeAlone(*disk)) {
        const FoundDisk alone{folder, true, {users / Url(folder).lastPathComponent()}};
        return home ? choose(alone, *home) : alone;
    }
    if (!isMacDisk(*disk))
        return DiskRefusal{DiskText::noMacDisk, {shown, whatLiesIn(*disk, Url("/"))}};
    if (home)
        return choose({folder, false, {}}, *home);
    if (!disk->isExecutable(users))
        return DiskRefusal{DiskText::mayNotBeRead, {shown + users.displayPath()}};
    const auto homes = homesOn(*disk);
    if (homes.isEmpty())
        return DiskRefusal{DiskText::noHome, {shown, whatLiesIn(*disk, users)}};
    if (homes.size() == 1)
        return choose({folder, false, homes}, homes.first().path());
    return FoundDisk{folder, false, homes};
}

std::variant<FoundDisk, DiskRefusal> MacDiskFinder::choose(FoundDisk found, const QByteArray &home) const
{
    const auto disk = m_openDisk(found.folder);
    auto wanted = users / home;
    if (home.contains('/'))
        wanted = home.startsWith(found.folder + '/') ? Url(home.mid(found.folder.size())) : Url('/' + home);
    wanted = wanted.standardized();
    if (found.isHomeAlone ? wanted == found.homes.first() : isReadableHome(*disk, wanted)) {
        found.homes = {wanted};
        return found;
    }
    const auto folder = decodedText(found.folder);
    if (!found.isHomeAlone && !disk->isGone(wanted / "Library"))
        return DiskRefusal{DiskText::homeMayNotBeRead, {folder, wanted.displayName()}};
    return DiskRefusal{DiskText::noSuchHome,
                       {wanted.displayName(), folder, namesOf(found.isHomeAlone ? found.homes : homesOn(*disk))}};
}
