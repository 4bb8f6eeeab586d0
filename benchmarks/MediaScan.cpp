// The media scan of a tree, against a bare loop that looks at the same files, fd and find.

#include "BareLoop.h"
#include "BenchDisk.h"
#include "LinuxFileSystem.h"
#include "MediaScanner.h"
#include "SideBySide.h"

#include <QStandardPaths>

#include <algorithm>

namespace {

constexpr const char *mediaExtensions[] = {
    "mp4", "mov",  "m4v", "mkv",  "avi", "webm", "mpg", "mpeg", "wmv",  "flv",  "mp3", "m4a", "aac", "wav", "aiff",
    "aif", "flac", "ogg", "opus", "jpg", "jpeg", "png", "heic", "heif", "tiff", "tif", "gif", "bmp", "webp"};

/// What has one of the extensions; in this tree that is one of them in lower case.
bool isMedia(QByteArrayView name)
{
    return name.endsWith(".jpg");
}

} // namespace

std::vector<Figure> mediaScan(const BenchDisk &disk)
{
    const LinuxFileSystem fileSystem(disk.tree(), BenchDisk::home(), {});
    const MediaScanner scanner(fileSystem);
    const QSet categories{MediaCategory::video, MediaCategory::audio, MediaCategory::image};
    const auto path = disk.treePath();
    const auto scan = [&] { scanner.scanMediaFiles(BenchDisk::caches(), categories, 50'000); };

    QStringList fd{"--no-ignore", "--ignore-case", "--type", "f"};
    QStringList find{QString::fromUtf8(path), "-type", "f", "("};
    for (const auto *extension : mediaExtensions) {
        fd << "--extension" << extension;
        find << "-iname" << QStringLiteral("*.%1").arg(extension) << "-o";
    }
    fd << "." << QString::fromUtf8(path);
    find << "-false"
         << ")";
    const auto fdName = QStandardPaths::findExecutable("fdfind").isEmpty() ? "fd" : "fdfind";

    const auto bare = sideBySide(21, {[&] { BareLoop(isMedia).measure(path); }, scan});
    std::vector<Contestant> contestants{scan};
    for (const auto *threads : {"2", "8", "16"})
        contestants.push_back(program(fdName, QStringList{"--threads", threads} + fd));
    const auto cold = coldSideBySide(5, contestants);
    contestants.push_back(program("find", find));
    const auto warm = sideBySide(11, contestants);
    const auto bestFd = [](const std::vector<double> &ratios) {
        return std::min({ratios[1], ratios[2], ratios[3]});
    };
    return {
        atMost("media among 150,000 files / bare loop", bare[1], 1.10),
        fasterBy("media among 150,000 files, than fd with 2, 8 or 16 threads", bestFd(warm), 2.0),
        fasterBy("media among 150,000 files, than find", warm[4], 2.8),
        cold ? fasterBy("media, cold caches, than fd with 2, 8 or 16 threads", bestFd(*cold), 1.0)
             : skipped("media, cold caches, than fd with 2, 8 or 16 threads"),
    };
}
