// Opens the window of Tarnvale on a sample disk, or makes the tour of it.
//   tarnvale_sample DISK                   builds a fresh sample disk in the folder DISK and opens the window on it
//   tarnvale_sample DISK --tour PICTURES   works the window through every screen, once for each language,
//                                          appearance and size, and keeps pictures in the folder PICTURES

#include "AppViewModel.h"
#include "ChosenAppearance.h"
#include "ChosenFolder.h"
#include "DiskRoot.h"
#include "FolderDialogChooser.h"
#include "LinuxAppearance.h"
#include "LinuxFolderChooser.h"
#include "LinuxPlatform.h"
#include "SampleDisk.h"
#include "TarnvaleApp.h"
#include "Tour.h"
#include "TrashDirectory.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>
#include <stop_token>

namespace {

DiskRoot rootOf(const SampleDisk &disk)
{
    return DiskRoot(QFile::encodeName(disk.folder()));
}

/// The services of this computer for the sample disk, with the computer that the disk plays to be in.
class SamplePlatform
{
public:
    SamplePlatform(const SampleDisk &disk, FolderChooser &folderChooser)
        : m_linux(rootOf(disk), disk.home(), folderChooser, m_stop.get_token()),
          m_facts(QFile::encodeName(disk.computerPath()))
    {
    }

    Platform services() const
    {
        const auto &linux = m_linux.services();
        return {
            linux.fileSystem,         linux.bundleReader, linux.codeSignature, linux.applicationRegistry, m_facts,
            linux.backgroundPriority, linux.workspace,    linux.helperService, linux.folderChooser};
    }

    /// What ends the scans in progress.
    const std::stop_source &stop() const { return m_stop; }

private:
    const std::stop_source m_stop;
    LinuxPlatform m_linux;
    LinuxSystemFacts m_facts;
};

int openWindow(const SampleDisk &disk)
{
    FolderDialogChooser folderDialog;
    LinuxFolderChooser folderChooser(folderDialog, &FolderDialogChooser::parentWindow);
    SamplePlatform platform(disk, folderChooser);
    LinuxAppearance appearance;
    TarnvaleApp app(platform.services(), appearance);
    return app.run(platform.stop());
}

int makeTour(const SampleDisk &disk, const QString &pictures)
{
    for (const auto language : allCases<AppLanguage>()) {
        for (const bool isDark : {false, true}) {
            for (const auto size : {QSize(980, 640), QSize(1600, 1000)}) {
                const auto name = QStringLiteral("%1-%2-%3")
                                      .arg(rawValue(language).toLower(), QLatin1String(isDark ? "dark" : "light"))
                                      .arg(size.width());
                std::printf("== %s\n", qUtf8Printable(name));
                if (const auto error = disk.build(); !error.isEmpty()) {
                    std::fprintf(stderr, "%s\n", qUtf8Printable(error));
                    return 1;
                }
                ChosenFolder chosenFolder;
                ChosenAppearance appearance;
                appearance.setDark(isDark);
                SamplePlatform platform(disk, chosenFolder);
                TarnvaleApp app(platform.services(), appearance);
                Tour tour(app.viewModel(), app.window(), chosenFolder, disk, pictures + u'/' + name);
                if (!tour.run(language, size)) {
                    platform.stop();
                    return 1;
                }
            }
        }
    }
    std::printf("The tour ended as it should.\n");
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const bool isTour = argc == 4 && qstrcmp(argv[2], "--tour") == 0;
    if (argc != 2 && !isTour) {
        std::fprintf(stderr, "usage: %s DISK [--tour PICTURES]\n", argv[0]);
        return 2;
    }
    // Before anything reads them: the desktop's libraries look for the home and its Trash only once.
    const SampleDisk disk(QDir(QFile::decodeName(argv[1])).absolutePath());
    qputenv("HOME", QFile::encodeName(disk.homePath()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(disk.dataHomePath()));
    if (isTour) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_QUICK_BACKEND", "software");
    }

    QGuiApplication application(argc, argv);
    if (homeTrash() != QFile::encodeName(disk.dataHomePath() + QStringLiteral("/Trash"))) {
        std::fprintf(stderr, "The desktop's Trash is not on the sample disk; nothing is opened.\n");
        return 1;
    }
    if (isTour)
        return makeTour(disk, QDir(QFile::decodeName(argv[3])).absolutePath());
    if (const auto error = disk.build(); !error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error));
        return 1;
    }
    return openWindow(disk);
}
