#include "SideBySide.h"

#include <QProcess>

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

namespace {

double seconds(const Contestant &contestant)
{
    const auto start = std::chrono::steady_clock::now();
    contestant();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ssize(values) / 2;
    std::ranges::nth_element(values, middle);
    return *middle;
}

} // namespace

Contestant program(const QString &name, const QStringList &arguments)
{
    return [=] {
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(name, arguments);
        if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit)
            qFatal("%s cannot be run", qPrintable(name));
    };
}

bool dropCaches()
{
    sync();
    const int file = open("/proc/sys/vm/drop_caches", O_WRONLY | O_CLOEXEC);
    const bool isDropped = file >= 0 && write(file, "3", 1) == 1;
    close(file);
    // The kernel hands the memory back in the background, which would be measured with what comes next.
    std::this_thread::sleep_for(std::chrono::seconds(1));
    return isDropped;
}

namespace {

std::vector<double> raced(int rounds, const std::vector<Contestant> &contestants,
                          const std::function<double(const Contestant &)> &time)
{
    std::vector<std::vector<double>> results(contestants.size());
    for (int round = 0; round < rounds; ++round) {
        const auto first = time(contestants.front());
        results[0].push_back(first);
        for (size_t i = 1; i < contestants.size(); ++i)
            results[i].push_back(time(contestants[i]) / first);
    }
    std::vector<double> medians;
    std::ranges::transform(results, std::back_inserter(medians), median);
    return medians;
}

} // namespace

std::vector<double> sideBySide(int rounds, const std::vector<Contestant> &contestants)
{
    for (const auto &contestant : contestants)
        contestant();
    return raced(rounds, contestants, seconds);
}

std::optional<std::vector<double>> coldSideBySide(int rounds, const std::vector<Contestant> &contestants)
{
    if (!dropCaches())
        return std::nullopt;
    return raced(rounds, contestants, [](const Contestant &contestant) {
        dropCaches();
        return seconds(contestant);
    });
}

Figure skipped(const QString &what)
{
    return {what, QStringLiteral("skipped"), QStringLiteral("only root can"), true};
}

Figure atMost(const QString &what, double ratio, double limit)
{
    return {what, QStringLiteral("%1 ×").arg(ratio, 0, 'f', 2),
            QStringLiteral("at most %1 ×").arg(limit, 0, 'f', 2), ratio <= limit};
}

Figure fasterBy(const QString &what, double ratio, double limit)
{
    return {what, QStringLiteral("%1 × faster").arg(ratio, 0, 'f', 2),
            QStringLiteral("at least %1 ×").arg(limit, 0, 'f', 2), ratio >= limit};
}
