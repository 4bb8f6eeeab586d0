// Opens the window of Tarnvale on another Mac's disk, mounted at or copied to a folder of this computer.
//   tarnvale-disk FOLDER [HOME]

#include "AllocatedSize.h"
#include "ByteCount.h"
#include "DiskDialog.h"
#include "LinuxFileSystem.h"
#include "MacDiskFinder.h"
#include "Program.h"
#include "Renderer.h"
#include "Text.h"
#include "TrashFailure.h"

#include <QFutureWatcher>
#include <QGuiApplication>
#include <QStorageInfo>
#include <QtConcurrentRun>

#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>
#include <filesystem>

namespace {

void say(const QString &line)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(line));
}

DiskRoot rootOf(const FoundDisk &disk)
{
    return disk.isHomeAlone ? DiskRoot(disk.folder, disk.homes.first()) : DiskRoot(disk.folder);
}

std::variant<FoundDisk, DiskRefusal> findDisk(int argc, char **argv)
{
    const auto openDisk = [](const QByteArray &folder) {
        return std::make_unique<LinuxFileSystem>(DiskRoot(folder), Url("/"), std::stop_token());
    };
    std::error_code error;
    const auto ownHome = std::filesystem::canonical(LinuxPlatform::userHome().path().toStdString(), error);
    const MacDiskFinder finder(openDisk, QByteArray::fromStdString(ownHome.native()));
    return finder.find(argv[1], argc == 3 ? std::optional<QByteArray>(argv[2]) : std::nullopt);
}

/// The label of a disk that is mounted there, else what the folder is called.
QString nameOf(const FoundDisk &disk)
{
    const Url folder(disk.folder);
    const QStorageInfo volume(folder.displayPath());
    const bool isMounted = volume.rootPath() == folder.displayPath();
    return isMounted && !volume.name().isEmpty() ? volume.name() : folder.displayName();
}

MacDisk description(const FoundDisk &disk, const Url &home)
{
    const LinuxFileSystem fileSystem(rootOf(disk), home, {});
    const auto volume = fileSystem.volumeValues(home);
    return {nameOf(disk), home.displayName(), disk.isHomeAlone, volume && volume->isReadOnly};
}

bool hasDisplay()
{
    return std::ranges::any_of(std::to_array({"WAYLAND_DISPLAY", "DISPLAY", "QT_QPA_PLATFORM"}),
                               [](const char *name) { return !qEnvironmentVariableIsEmpty(name); });
}

int refuse(const QString &why, AppLanguage language)
{
    LinuxAppearance appearance;
    DiskDialog(language, diskText(DiskText::cannotOpenTitle, language), why).exec(appearance);
    return 1;
}

/// Sizes come as they are known; nobody has to wait for them.
std::optional<Url> chooseHome(const FoundDisk &disk, AppLanguage language)
{
    DiskDialog dialog(language, diskText(DiskText::chooseHomeTitle, language),
                      filledText(diskText(DiskText::chooseHomeMessage, language), nameOf(disk)));
    std::stop_source stop;
    const LinuxFileSystem fileSystem(rootOf(disk), Url("/"), stop.get_token());
    QThreadPool thread;
    thread.setMaxThreadCount(1);
    std::deque<QFutureWatcher<qint64>> sizes(static_cast<size_t>(disk.homes.size()));
    for (qsizetype i = 0; i < disk.homes.size(); ++i) {
        const auto &home = disk.homes.at(i);
        dialog.addChoice(home.displayName(), diskText(DiskText::measuring, language));
        auto &size = sizes[static_cast<size_t>(i)];
        QObject::connect(&size, &QFutureWatcher<qint64>::finished, &dialog, [&dialog, &size, i] {
            dialog.setDetail(i, formattedByteCount(size.result(), ByteCountStyle::file));
        });
        size.setFuture(
            QtConcurrent::run(&thread, [&fileSystem, home] { return allocatedSize(fileSystem, home); }));
    }
    LinuxAppearance appearance;
    const auto chosen = dialog.exec(appearance);
    stop.request_stop();
    return chosen ? std::optional(disk.homes.at(*chosen)) : std::nullopt;
}

void nameHomes(const FoundDisk &disk, AppLanguage language)
{
    say(filledText(diskText(DiskText::severalHomes, language), decodedText(disk.folder)));
    for (const auto &home : disk.homes)
        say(QStringLiteral("  ") + home.displayName());
}

} // namespace

int main(int argc, char **argv)
{
    if ((argc != 2 && argc != 3) || argv[1][0] == '-') {
        std::fprintf(stderr, "usage: tarnvale-disk FOLDER [HOME]\n");
        return 2;
    }
    const auto language = systemLanguage();
    const auto found = findDisk(argc, argv);
    const auto *refusal = std::get_if<DiskRefusal>(&found);
    const auto *disk = std::get_if<FoundDisk>(&found);
    if (refusal)
        say(refusal->inWords(language));
    if (!hasDisplay()) {
        if (disk && disk->homes.size() > 1)
            nameHomes(*disk, language);
        else if (disk)
            say(diskText(DiskText::noDisplay, language));
        return 1;
    }

    QGuiApplication application(argc, argv);
    chooseRenderer();
    // The choice is not the program's last window.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    if (refusal)
        return refuse(refusal->inWords(language), language);
    const auto home = disk->homes.size() == 1 ? std::optional(disk->homes.first()) : chooseHome(*disk, language);
    if (!home)
        return 0;
    QGuiApplication::setQuitOnLastWindowClosed(true);
    Program program(rootOf(*disk), *home, description(*disk, *home));
    return program.run();
}
