#include "PermittedArea.h"

#include "Spelling.h"

#include <QList>

#include <algorithm>

namespace {

enum class Base { homeDirectory, root };

struct PermittedArea
{
    Base base;
    /// Ends in a separator, so that the area's own folder never matches.
    const char *folder;
};

constexpr PermittedArea permittedAreas[] = {
    {Base::homeDirectory, "/Library/Application Support/"},
    {Base::homeDirectory, "/Library/Caches/"},
    {Base::homeDirectory, "/Library/Containers/"},
    {Base::homeDirectory, "/Library/Group Containers/"},
    {Base::homeDirectory, "/Library/Application Scripts/"},
    {Base::homeDirectory, "/Library/Preferences/"},
    {Base::homeDirectory, "/Library/LaunchAgents/"},
    {Base::homeDirectory, "/Library/Logs/"},
    {Base::homeDirectory, "/Library/Saved Application State/"},
    {Base::homeDirectory, "/Library/WebKit/"},
    {Base::homeDirectory, "/Library/HTTPStorages/"},
    {Base::homeDirectory, "/Library/Cookies/"},
    {Base::homeDirectory, "/Applications/"},
    {Base::root, "/Applications/"},
};

// Canonically equivalent spellings of a path come out alike.
QByteArray canonicalSpelling(const QByteArray &path)
{
    auto components = path.split('/');
    for (auto &component : components)
        component = canonicalFileName(component);
    return components.join('/');
}

} // namespace

bool isInsidePermittedArea(const Url &item, const Url &homeDirectory)
{
    const auto path = canonicalSpelling(item.standardizedPath());
    const auto home = canonicalSpelling(homeDirectory.standardizedPath());
    if (path == home || path == "/Applications" || belongsToSystem(item) || path.contains("/../"))
        return false;
    return std::ranges::any_of(permittedAreas, [&](const PermittedArea &area) {
        switch (area.base) {
        case Base::homeDirectory:
            // Without a home folder, its areas would turn into the machine's.
            return !home.isEmpty() && path.startsWith(home + area.folder);
        case Base::root:
            return path.startsWith(area.folder);
        }
        Q_UNREACHABLE();
    });
}

bool belongsToSystem(const Url &item)
{
    return canonicalSpelling(item.standardizedPath()).startsWith("/System/");
}
