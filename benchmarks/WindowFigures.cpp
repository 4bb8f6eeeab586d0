// How soon the window shows something: at its start, after a scan with 50,000 results, and while long lists scroll.

#include "BenchDisk.h"
#include "Figure.h"

#include <QCoreApplication>
#include <QProcess>

#include <algorithm>
#include <chrono>

namespace {

struct Probed
{
    double milliseconds;
    double count;
};

/// What one start of the probe prints.
Probed probe(const QStringList &arguments)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    // A frame is drawn as soon as one is wanted.
    environment.insert(QStringLiteral("QT_QPA_UPDATE_IDLE_TIME"), QStringLiteral("0"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/window_probe"), arguments);
    process.waitForFinished(60'000);
    const auto words = QString::fromLatin1(process.readAllStandardOutput()).simplified().split(u' ');
    if (process.exitCode() != 0 || words.size() != 2)
        qFatal("the window could not be opened");
    return {words[0].toDouble(), words[1].toDouble()};
}

/// The medians of several starts; the first one only warms the disk's cache.
template <typename Arguments> Probed medianOf(Arguments arguments)
{
    constexpr int rounds = 9;
    std::vector<double> milliseconds, counts;
    probe(arguments());
    for (int i = 0; i < rounds; ++i) {
        const auto probed = probe(arguments());
        milliseconds.push_back(probed.milliseconds);
        counts.push_back(probed.count);
    }
    std::ranges::sort(milliseconds);
    std::ranges::sort(counts);
    return {milliseconds[rounds / 2], counts[rounds / 2]};
}

} // namespace

std::vector<Figure> windowFigures(const BenchDisk &disk)
{
    const auto start = medianOf([] {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return QStringList{QStringLiteral("first-frame"), QString::number(std::chrono::nanoseconds(now).count())};
    });
    const auto row = medianOf([&] {
        return QStringList{QStringLiteral("first-row"), QString::fromUtf8(disk.tree().prefix()),
                           BenchDisk::caches().displayPath()};
    });
    const auto documents = medianOf([&] {
        return QStringList{QStringLiteral("scroll"), QString::fromUtf8(disk.tree().prefix()),
                           BenchDisk::caches().displayPath()};
    });
    const auto applications = medianOf([&] {
        return QStringList{QStringLiteral("scroll-applications"), QString::fromUtf8(disk.gallery().prefix())};
    });
    if (row.count != 50'000 || documents.count != 50'000 || applications.count != BenchDisk::galleryCount)
        qFatal("the window shows too little");
    const auto ms = QStringLiteral("ms");
    return {
        atMost(QStringLiteral("process start to first frame, offscreen, software"), start.milliseconds, 150, ms),
        atMost(QStringLiteral("resident memory at the first frame"), start.count / 1024, 60,
               QStringLiteral("MiB")),
        atMost(QStringLiteral("50,000 results: from the scan's end to the first painted row"), row.milliseconds,
               100, ms),
        atMost(QStringLiteral("longest frame while 50,000 documents scroll"), documents.milliseconds, 16, ms),
        atMost(QStringLiteral("longest frame while 500 applications with icons scroll"), applications.milliseconds,
               16, ms)};
}
