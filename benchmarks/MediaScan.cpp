// The media scan of a tree, against a bare loop that looks at the same files, fd and find.

#include "BareLoop.h"
#include "BenchDisk.h"
#include "LinuxFileSystem.h"
#include "MediaScanner.h"
#include "SideBySide.h"

#include <QStandardPaths>

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

    QStringList fd{"--threads", "1", "--no-ignore", "--ignore-case", "--type", "f"};
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
    const auto others = sideBySide(11, {scan, program(fdName, fd), program("find", find)});
    return {
        atMost("media among 150,000 files / bare loop", bare[1], 1.10),
        fasterBy("media among 150,000 files, than fd --threads 1", others[1], 1.8),
        fasterBy("media among 150,000 files, than find", others[2], 2.8),
    };
}
