#include "Tour.h"

#include "AppViewModel.h"
#include "ByteCount.h"
#include "ChosenFolder.h"
#include "SampleDisk.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <cstdio>

namespace {

void say(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

QString summary(const QList<ScanItem> &items)
{
    qint64 bytes = 0, selectedBytes = 0;
    qsizetype selected = 0;
    for (const auto &item : items) {
        bytes += item.sizeBytes;
        if (item.isSelected) {
            ++selected;
            selectedBytes += item.sizeBytes;
        }
    }
    return QStringLiteral("%1 items of %2, %3 of them ticked with %4")
        .arg(items.size())
        .arg(formattedByteCount(bytes, ByteCountStyle::file))
        .arg(selected)
        .arg(formattedByteCount(selectedBytes, ByteCountStyle::file));
}

} // namespace

Tour::Tour(AppViewModel &viewModel, QQuickWindow &window, ChosenFolder &chosenFolder, const SampleDisk &disk,
           QString pictures)
    : m_viewModel(viewModel), m_window(window), m_chosenFolder(chosenFolder), m_disk(disk),
      m_pictures(std::move(pictures)), m_robot(window)
{
}

bool Tour::run(AppLanguage language, QSize size)
{
    try {
        visitEverything(language, size);
    } catch (const StepFailed &) {
        return false;
    }
    return true;
}

void Tour::visitEverything(AppLanguage language, QSize size)
{
    QDir().mkpath(m_pictures);
    m_window.resize(size);
    expect(QTest::qWaitForWindowExposed(&m_window), QStringLiteral("the window opens"));
    expect(m_viewModel.language() == AppLanguage::polish, QStringLiteral("it speaks Polish at first"));
    expect(m_window.minimumSize() == QSize(980, 640),
           QStringLiteral("it cannot be made too small for its screens"));
    click(QAccessible::RadioButton, rawValue(language));
    expect(m_viewModel.language() == language, QStringLiteral("it speaks the language that was chosen"));

    visitDashboard();
    visitEmptyUninstaller();
    visitApplications();
    uninstallByName();
    meetSystemApplication();
    dropBundles();
    visitLeftovers();
    visitCleaner();
    visitMedia();
    visitDocuments();
    visitComputerWithoutBattery();
}

void Tour::visitDashboard()
{
    say(QStringLiteral("Dashboard"));
    expect(Robot::waitUntil([&] { return m_viewModel.dashboardSnapshot().has_value(); }),
           QStringLiteral("the computer is read when the screen is shown"));
    keepPicture(QStringLiteral("dashboard"));
    press(QStringLiteral("refresh"));
    m_robot.press(Qt::Key_End);
    keepPicture(QStringLiteral("dashboard-end"));
}

void Tour::visitEmptyUninstaller()
{
    say(QStringLiteral("Uninstaller, before anything was looked for"));
    show(SidebarSelection::uninstaller);
    expect(!m_robot.canUse(QAccessible::Button, text(QStringLiteral("scan"))),
           QStringLiteral("there is nothing to scan for without a name"));
    keepPicture(QStringLiteral("uninstaller-empty"));
}

void Tour::visitApplications()
{
    say(QStringLiteral("Applications"));
    show(SidebarSelection::applications);
    keepPicture(QStringLiteral("applications-not-scanned"));
    workOn(QStringLiteral("applications-loading"), [&] { press(QStringLiteral("scan")); });
    say(QStringLiteral("  %1 applications").arg(m_viewModel.applications().size()));
    expect(m_viewModel.applications().size() == 16, QStringLiteral("every application of the folders is listed"));
    keepPicture(QStringLiteral("applications"));

    click(QAccessible::ListItem, QStringLiteral("Fjord Browser"));
    keepPicture(QStringLiteral("applications-selected"));
    workOn(QStringLiteral("applications-scanning"), [&] { press(QStringLiteral("scan_related")); });
    say(QStringLiteral("  Fjord Browser: ") + summary(m_viewModel.associatedItems()));
    bool onlyItsOwn = !m_viewModel.associatedItems().isEmpty();
    for (const auto &item : m_viewModel.associatedItems())
        onlyItsOwn = onlyItsOwn && !item.url.path().contains("browserbeta");
    expect(onlyItsOwn, QStringLiteral("nothing of the application whose identifier begins alike is found"));
    keepPicture(QStringLiteral("applications-results"));
}

void Tour::uninstallByName()
{
    say(QStringLiteral("Uninstaller: a whole uninstall by name"));
    show(SidebarSelection::uninstaller);
    searchApplication(QStringLiteral("nie ma takiej aplikacji"));
    waitUntilIdle();
    expect(m_viewModel.statusMessage() == text(QStringLiteral("no_match")),
           QStringLiteral("a name that nothing has is answered in words"));
    keepPicture(QStringLiteral("uninstaller-nothing-found"));

    workOn(QStringLiteral("uninstaller-searching"), [&] { searchApplication(QStringLiteral("lumen.APP")); });
    say(QStringLiteral("  Lumen: ") + summary(m_viewModel.associatedItems()));
    expect(m_viewModel.associatedItems().size() == 17, QStringLiteral("one item of every kind is found"));
    keepPicture(QStringLiteral("uninstaller-results"));

    const auto tickedBefore = m_viewModel.associatedItemModel()->selectedCount();
    const auto largest = m_viewModel.associatedItems().constFirst().url.displayName();
    click(QAccessible::CheckBox, largest);
    expect(m_viewModel.associatedItemModel()->selectedCount() == tickedBefore - 1,
           QStringLiteral("unticking an item leaves it out"));
    click(QAccessible::CheckBox, largest);
    expect(m_viewModel.associatedItemModel()->selectedCount() == tickedBefore,
           QStringLiteral("ticking takes it in again"));

    press(QStringLiteral("delete_selected"));
    expect(m_viewModel.pendingDeletion().has_value(), QStringLiteral("the removal asks first"));
    keepPicture(QStringLiteral("confirmation"));
    m_robot.press(Qt::Key_Escape);
    expect(Robot::waitUntil([&] { return !m_viewModel.pendingDeletion(); }, 5000) && trashCount() == 0
               && isOnDisk(QStringLiteral("/Applications/Lumen.app")),
           QStringLiteral("Escape cancels it and nothing is moved"));

    say(QStringLiteral("  before: %1 items in the Trash").arg(trashCount()));
    keepPicture(QStringLiteral("uninstaller-cancelled"));
    press(QStringLiteral("delete_selected"));
    workOn(QStringLiteral("uninstaller-removing"), [&] { press(QStringLiteral("move_to_trash")); });
    say(QStringLiteral("  after: %1 items in the Trash; “%2”").arg(trashCount()).arg(m_viewModel.statusMessage()));
    expect(trashCount() == tickedBefore && m_viewModel.lastReport()
               && m_viewModel.lastReport()->deletedCount == tickedBefore,
           QStringLiteral("everything ticked is in the Trash"));
    expect(!isOnDisk(QStringLiteral("/Applications/Lumen.app"))
               && !isOnDisk(QStringLiteral("/Users/ada/Library/Caches/org.lumen.editor")),
           QStringLiteral("the application and its cache are gone from their places"));
    expect(isOnDisk(QStringLiteral("/Users/ada/Library/Caches/Lumen/thumbnails"))
               && isOnDisk(QStringLiteral("/Users/ada/Library/LaunchAgents/org.lumen.editorial.plist")),
           QStringLiteral("what was not ticked and what belongs to others is where it was"));
    expect(!m_viewModel.selectedApplication(), QStringLiteral("the application that is gone is forgotten"));
    keepPicture(QStringLiteral("uninstaller-removed"));
}

void Tour::meetSystemApplication()
{
    say(QStringLiteral("Uninstaller: an application of the system"));
    searchApplication(QStringLiteral("Kalkulator"));
    waitUntilIdle();
    say(QStringLiteral("  Kalkulator: ") + summary(m_viewModel.associatedItems()));
    expect(!m_viewModel.associatedItems().isEmpty() && m_viewModel.associatedItemModel()->selectedCount() == 0,
           QStringLiteral("nothing of it starts ticked"));
    expect(!m_robot.canUse(QAccessible::Button, text(QStringLiteral("delete_selected"))),
           QStringLiteral("there is nothing to remove"));
    keepPicture(QStringLiteral("uninstaller-system-application"));
}

void Tour::dropBundles()
{
    say(QStringLiteral("Uninstaller: dropped items"));
    const auto drop = [&](const QString &path) {
        const auto uri = onHost(path.toUtf8()).toUri();
        expect(m_robot.drop(uri + "\r\n", QAccessible::StaticText, text(QStringLiteral("drop_app_title"))),
               QStringLiteral("%1 is dropped").arg(path));
    };
    drop(QStringLiteral("/Users/ada/Documents/notatki.txt"));
    expect(
        Robot::waitUntil([&] { return m_viewModel.statusMessage() == text(QStringLiteral("drop_invalid_app")); }),
        QStringLiteral("a document is no application"));
    keepPicture(QStringLiteral("uninstaller-dropped-document"));

    drop(QStringLiteral("/Users/ada/Downloads/Installer.app"));
    expect(Robot::waitUntil([&] { return m_viewModel.applicationQuery() == u"Installer"; }),
           QStringLiteral("the name of the bundle is filled in"));
    waitUntilIdle();
    removeSelected();
    expect(Robot::waitUntil([&] { return m_robot.sees(QAccessible::Button, text(QStringLiteral("ok"))); }, 5000),
           QStringLiteral("what could not be moved is told in a notice"));
    expect(isOnDisk(QStringLiteral("/Users/ada/Downloads/Installer.app/Contents/Info.plist")),
           QStringLiteral("a bundle outside of the permitted areas stays where it is"));
    keepPicture(QStringLiteral("partial-failure-notice"));
    press(QStringLiteral("ok"));
    expect(Robot::waitUntil([&] { return !m_viewModel.userNotice(); }, 5000),
           QStringLiteral("the notice goes away"));
    keepPicture(QStringLiteral("uninstaller-after-failure"));
}

void Tour::visitLeftovers()
{
    say(QStringLiteral("Leftovers"));
    show(SidebarSelection::leftovers);
    keepPicture(QStringLiteral("leftovers-empty"));
    workOn(QStringLiteral("leftovers-scanning"), [&] { press(QStringLiteral("scan")); });
    say(QStringLiteral("  ") + summary(m_viewModel.leftoverItems()));
    expect(m_viewModel.leftoverItems().size() == 6 && m_viewModel.leftoverItemModel()->selectedCount() == 0,
           QStringLiteral("what applications left is found and not ticked"));
    keepPicture(QStringLiteral("leftovers-results"));

    const auto search = [&](const QString &name) {
        click(QAccessible::EditableText, text(QStringLiteral("leftover_search_placeholder")));
        m_robot.press(Qt::Key_A, Qt::ControlModifier);
        m_robot.type(name);
        m_robot.press(Qt::Key_Return);
        waitUntilIdle();
    };
    search(QStringLiteral("../.."));
    expect(m_viewModel.statusMessage() == text(QStringLiteral("leftover_search_invalid")),
           QStringLiteral("a path is no name"));
    keepPicture(QStringLiteral("leftovers-invalid-name"));
    search(QStringLiteral("no.such.item"));
    keepPicture(QStringLiteral("leftovers-nothing-found"));
    search(QStringLiteral("COM.oldvendor.sync"));
    say(QStringLiteral("  “COM.oldvendor.sync”: ") + summary(m_viewModel.leftoverItems()));
    expect(m_viewModel.leftoverItems().size() == 2, QStringLiteral("a name is found whatever its case"));
    keepPicture(QStringLiteral("leftovers-found-by-name"));
}

void Tour::visitCleaner()
{
    say(QStringLiteral("Cache & Logs"));
    show(SidebarSelection::cleaner);
    keepPicture(QStringLiteral("cleaner-empty"));
    workOn(QStringLiteral("cleaner-scanning"), [&] { press(QStringLiteral("scan")); });
    say(QStringLiteral("  ") + summary(m_viewModel.cleanerItems()));
    bool noneOfTheSystem = !m_viewModel.cleanerItems().isEmpty();
    for (const auto &item : m_viewModel.cleanerItems())
        noneOfTheSystem = noneOfTheSystem && !item.url.lastPathComponent().toLower().startsWith("com.apple.");
    expect(noneOfTheSystem, QStringLiteral("nothing of the operating system is offered"));
    click(QAccessible::CheckBox, QStringLiteral("updater.log"));
    keepPicture(QStringLiteral("cleaner-results"));
    const auto trashBefore = trashCount();
    removeSelected();
    expect(trashCount() == trashBefore + 1 && !isOnDisk(QStringLiteral("/Users/ada/Library/Logs/updater.log")),
           QStringLiteral("the log is in the Trash"));
    keepPicture(QStringLiteral("cleaner-removed"));
}

void Tour::visitMedia()
{
    say(QStringLiteral("Media Files"));
    show(SidebarSelection::mediaFinder);
    keepPicture(QStringLiteral("media-empty"));
    m_chosenFolder.setAnswer(onHost("/Users/ada"));
    press(QStringLiteral("media_choose_folder"));
    waitUntilIdle();
    keepPicture(QStringLiteral("media-folder-chosen"));
    workOn(QStringLiteral("media-scanning"), [&] { press(QStringLiteral("scan")); });
    say(QStringLiteral("  %1 files; “%2”").arg(m_viewModel.mediaFiles().size()).arg(m_viewModel.statusMessage()));
    expect(m_viewModel.mediaFiles().size() == 9,
           QStringLiteral("media outside of packages, links and hidden files are found"));
    keepPicture(QStringLiteral("media-results"));
}

void Tour::visitDocuments()
{
    say(QStringLiteral("Text Files"));
    show(SidebarSelection::textFinder);
    keepPicture(QStringLiteral("documents-empty"));
    m_chosenFolder.setAnswer(onHost("/Users/ada/Documents"));
    press(QStringLiteral("text_choose_folder"));
    waitUntilIdle();
    click(QAccessible::CheckBox, text(QStringLiteral("text_pdf")));
    workOn(QStringLiteral("documents-scanning"), [&] { press(QStringLiteral("scan")); });
    say(QStringLiteral("  %1 files; “%2”").arg(m_viewModel.textFiles().size()).arg(m_viewModel.statusMessage()));
    expect(m_viewModel.textFiles().size() == 6, QStringLiteral("documents of the ticked kinds are found"));
    keepPicture(QStringLiteral("documents-results"));
}

void Tour::visitComputerWithoutBattery()
{
    say(QStringLiteral("Dashboard of a computer without a battery"));
    QDir(m_disk.computerPath() + QStringLiteral("/sys/class/power_supply/BAT0")).removeRecursively();
    show(SidebarSelection::dashboard);
    const auto isKnown = [&] { return !m_viewModel.dashboardSnapshot()->battery; };
    for (int refreshes = 0; refreshes < 5 && !Robot::waitUntil(isKnown, 1000); ++refreshes)
        press(QStringLiteral("refresh"));
    expect(isKnown(), QStringLiteral("a battery that is gone is not shown"));
    keepPicture(QStringLiteral("dashboard-without-battery"));
}

void Tour::show(SidebarSelection section)
{
    click(QAccessible::PageTab, text(rawValue(section)));
    expect(m_viewModel.sidebarSelection() == section, QStringLiteral("the sidebar leads there"));
}

void Tour::searchApplication(const QString &name)
{
    click(QAccessible::EditableText, text(QStringLiteral("search_placeholder")));
    m_robot.press(Qt::Key_A, Qt::ControlModifier);
    m_robot.type(name);
    m_robot.press(Qt::Key_Return);
}

void Tour::removeSelected()
{
    press(QStringLiteral("delete_selected"));
    press(QStringLiteral("move_to_trash"));
    waitUntilIdle();
}

Url Tour::onHost(const QByteArray &path) const
{
    return Url(m_disk.folder().toUtf8() + path);
}

void Tour::workOn(const QString &name, const std::function<void()> &begin)
{
    QImage picture;
    const auto look = [&] {
        if (picture.isNull() && m_viewModel.isProcessing())
            picture = m_robot.picture();
    };
    // At once when the work has said what it is: it may have ended before the main thread gets to anything else.
    const auto watch = QObject::connect(&m_viewModel, &AppViewModel::statusMessageChanged, look);
    begin();
    expect(Robot::waitUntil([&] { return !picture.isNull(); }, 5'000), QStringLiteral("the work begins"));
    QObject::disconnect(watch);
    keep(picture, name);
    waitUntilIdle();
}

void Tour::waitUntilIdle()
{
    expect(Robot::waitUntil([&] { return !m_viewModel.isProcessing(); }),
           QStringLiteral("the work comes to its end"));
}

void Tour::expect(bool isTrue, const QString &what)
{
    if (isTrue)
        return;
    const auto file = nextPicture(QStringLiteral("failed"));
    m_robot.picture().save(file);
    say(QStringLiteral("  FAILED: %1. The tour ends here; how it looked: %2").arg(what, file));
    throw StepFailed();
}

void Tour::click(QAccessible::Role role, const QString &name)
{
    expect(m_robot.click(role, name), QStringLiteral("“%1” can be clicked").arg(name));
}

void Tour::keepPicture(const QString &name)
{
    QTest::qWait(250);
    keep(m_robot.picture(), name);
}

void Tour::keep(const QImage &picture, const QString &name)
{
    const auto file = nextPicture(name);
    expect(picture.save(file), QStringLiteral("%1 is written").arg(file));
}

QString Tour::nextPicture(const QString &name)
{
    return QStringLiteral("%1/%2-%3.png").arg(m_pictures).arg(++m_pictureCount, 2, 10, QLatin1Char('0')).arg(name);
}

QString Tour::text(const QString &key) const
{
    return localizedText(key, m_viewModel.language());
}

qsizetype Tour::trashCount() const
{
    return QDir(m_disk.dataHomePath() + QStringLiteral("/Trash/info"))
        .entryList(QDir::Files | QDir::Hidden)
        .size();
}

bool Tour::isOnDisk(const QString &path) const
{
    return QFileInfo::exists(m_disk.folder() + path);
}
