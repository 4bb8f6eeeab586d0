// What a bus costs that lets everybody connect and never answers: how long the window is deaf while all is asked of it
// that the program asks, and how long the program takes to quit meanwhile.

#include "Figure.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr double mostMilliseconds = 16;
constexpr double mostMillisecondsToQuit = 100;

/// A socket at `path` that the kernel connects to, and nobody behind it.
int listenAt(const QByteArray &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<size_t>(path.size()) >= sizeof address.sun_path)
        qFatal("the path of the bus is too long");
    std::memcpy(address.sun_path, path.constData(), static_cast<size_t>(path.size()));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 || listen(socket, 64) != 0)
        qFatal("the bus cannot be made");
    return socket;
}

struct Probed
{
    double stall;
    double timeToQuit;
};

Probed probe(const QString &disk, const QString &socket)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=") + socket);
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/window_probe"),
                  {QStringLiteral("buses"), disk});
    process.waitForFinished(60'000);
    const std::chrono::nanoseconds end = std::chrono::steady_clock::now().time_since_epoch();
    const auto words = QString::fromLatin1(process.readAllStandardOutput()).simplified().split(u' ');
    if (process.exitCode() != 0 || words.size() != 2)
        qFatal("the window could not be opened");
    const std::chrono::nanoseconds quit(words[1].toLongLong());
    return {words[0].toDouble(), std::chrono::duration<double, std::milli>(end - quit).count()};
}

} // namespace

std::vector<Figure> silentBus(const BenchDisk &)
{
    const QTemporaryDir disk;
    QDir(disk.path()).mkpath(QStringLiteral("run/dbus"));
    const auto path = disk.filePath(QStringLiteral("run/dbus/system_bus_socket"));
    const auto socket = listenAt(QFile::encodeName(path));
    std::vector<double> stalls, times;
    for (int round = 0; round < 5; ++round) {
        const auto [stall, timeToQuit] = probe(disk.path(), path);
        stalls.push_back(stall);
        times.push_back(timeToQuit);
    }
    close(socket);
    std::ranges::sort(stalls);
    std::ranges::sort(times);
    const auto ms = QStringLiteral("ms");
    return {atMost(QStringLiteral("longest stall of the window, buses that never answer"), stalls[2],
                   mostMilliseconds, ms),
            atMost(QStringLiteral("quitting, buses that never answer"), times[2], mostMillisecondsToQuit, ms)};
}
