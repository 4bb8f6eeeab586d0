#include "SidebarSection.h"

const QList<SidebarSection> &sidebarSections()
{
    static const QList<SidebarSection> sections{
        {SidebarSelection::dashboard, "dashboard", "rectangle.grid.2x2", "DashboardView"},
        {SidebarSelection::uninstaller, "uninstaller", "trash", "UninstallerView"},
        {SidebarSelection::applications, "applications", "app.badge", "ApplicationsView"},
        {SidebarSelection::leftovers, "leftovers", "eraser", "LeftoversView"},
        {SidebarSelection::cleaner, "cleaner", "gauge.with.dots.needle.33percent", "CleanerView"},
        {SidebarSelection::mediaFinder, "media_finder", "photo.on.rectangle.angled", "MediaFinderView"},
        {SidebarSelection::textFinder, "text_finder", "doc.text.magnifyingglass", "TextFileFinderView"},
    };
    return sections;
}
