// Opens the window of Tarnvale on a sample disk, or makes the tour of it.
//   tarnvale_sample DISK                   builds a fresh sample disk in the folder DISK and opens the window on it
//   tarnvale_sample DISK --tour PICTURES   works the window through every screen, once for each language,
//                                          appearance and size, and keeps pictures in the folder PICTURES
//       --round pl-dark-980                only once: in this language and appearance, this wide
//       --renderer own                     drawn by Qt's own renderer, on an X display, instead of by the software one
//       --scale 1.5                        with so many pixels to a point

#include "AppViewModel.h"
#include "ChosenAppearance.h"
#include "ChosenFolder.h"
#include "DiskRoot.h"
#include "FolderDialogChooser.h"
#include "LinuxAppearance.h"
#include "LinuxFolderChooser.h"
#include "LinuxPlatform.h"
#include "Renderer.h"
#include "SampleDisk.h"
#include "TarnvaleApp.h"
#include "Tour.h"
#include "TrashDirectory.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
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
    chooseRenderer();
    const auto home = QFile::encodeName(disk.homePath());
    FolderDialogChooser folderDialog(home);
    LinuxFolderChooser folderChooser(folderDialog, home, &FolderDialogChooser::parentWindow);
    SamplePlatform platform(disk, folderChooser);
    LinuxAppearance appearance;
    TarnvaleApp app(platform.services(), appearance);
    return app.run(platform.stop());
}

/// One walk of the tour.
struct Round
{
    AppLanguage language;
    bool isDark;
    QSize size;

    QString name() const
    {
        return QStringLiteral("%1-%2-%3")
            .arg(rawValue(language).toLower(), QLatin1String(isDark ? "dark" : "light"))
            .arg(size.width());
    }
};

QList<Round> allRounds()
{
    QList<Round> rounds;
    for (const auto language : allCases<AppLanguage>()) {
        for (const bool isDark : {false, true}) {
            for (const auto size : {QSize(980, 640), QSize(1600, 1000)})
                rounds.append({language, isDark, size});
        }
    }
    return rounds;
}

/// Whether everything was as it should be; what was not is said.
bool makeRound(const Round &round, const SampleDisk &disk, const QString &pictures)
{
    std::printf("== %s\n", qUtf8Printable(round.name()));
    if (const auto error = disk.build(); !error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error));
        return false;
    }
    ChosenFolder chosenFolder;
    ChosenAppearance appearance;
    appearance.setDark(round.isDark);
    SamplePlatform platform(disk, chosenFolder);
    TarnvaleApp app(platform.services(), appearance);
    Tour tour(app.viewModel(), app.window(), chosenFolder, disk, pictures + u'/' + round.name());
    const auto isRight = tour.run(round.language, round.size);
    if (!isRight)
        platform.stop();
    return isRight;
}

/// `only` is the name of the one round to make; empty for all.
int makeTour(const SampleDisk &disk, const QString &pictures, const QString &only)
{
    auto rounds = allRounds();
    if (!only.isEmpty())
        rounds.removeIf([&](const Round &round) { return round.name() != only; });
    if (rounds.isEmpty()) {
        std::fprintf(stderr, "There is no round \"%s\".\n", qUtf8Printable(only));
        return 2;
    }
    for (const auto &round : rounds) {
        if (!makeRound(round, disk, pictures))
            return 1;
    }
    std::printf("The tour ended as it should.\n");
    return 0;
}

/// What surrounds the tour, to be set before anything reads it: drawn by Qt's software renderer without a display, or by
/// its own renderer on the display that there is.
void setSurroundings(const QString &renderer, const QString &scale)
{
    if (renderer == u"software")
        qputenv("QT_QUICK_BACKEND", "software");
    else
        qunsetenv("QT_QUICK_BACKEND");
    qputenv("QT_QPA_PLATFORM", renderer == u"software" ? "offscreen" : "xcb");
    qputenv("QT_SCALE_FACTOR", scale.toLatin1());
}

} // namespace

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("tour"), {}, QStringLiteral("folder")},
        {QStringLiteral("round"), {}, QStringLiteral("name")},
        {QStringLiteral("renderer"), {}, QStringLiteral("name"), QStringLiteral("software")},
        {QStringLiteral("scale"), {}, QStringLiteral("factor"), QStringLiteral("1")},
    });
    const auto isUnderstood = parser.parse(arguments) && parser.positionalArguments().size() == 1;
    const auto renderer = parser.value(QStringLiteral("renderer"));
    if (!isUnderstood || (renderer != u"software" && renderer != u"own")) {
        std::fprintf(stderr,
                     "usage: %s DISK [--tour PICTURES [--round NAME] [--renderer software|own] [--scale N]]\n",
                     argv[0]);
        return 2;
    }
    // Before anything reads them: the desktop's libraries look for the home and its Trash only once.
    const SampleDisk disk(QDir(parser.positionalArguments().constFirst()).absolutePath());
    qputenv("HOME", QFile::encodeName(disk.homePath()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(disk.dataHomePath()));
    const auto isTour = parser.isSet(QStringLiteral("tour"));
    if (isTour)
        setSurroundings(renderer, parser.value(QStringLiteral("scale")));

    QGuiApplication application(argc, argv);
    if (homeTrash() != QFile::encodeName(disk.dataHomePath() + QStringLiteral("/Trash"))) {
        std::fprintf(stderr, "The desktop's Trash is not on the sample disk; nothing is opened.\n");
        return 1;
    }
    if (isTour) {
        const auto pictures = QDir(parser.value(QStringLiteral("tour"))).absolutePath();
        return makeTour(disk, pictures, parser.value(QStringLiteral("round")));
    }
    if (const auto error = disk.build(); !error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error));
        return 1;
    }
    return openWindow(disk);
}
