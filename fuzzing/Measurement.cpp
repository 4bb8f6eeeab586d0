#include "Fuzz.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

// g++ defines the first, clang knows the second.
#if defined(__SANITIZE_ADDRESS__)
#define FUZZ_WITH_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define FUZZ_WITH_SANITIZER
#endif
#endif

#ifdef FUZZ_WITH_SANITIZER
#include <atomic>

// The header of these comes with clang alone; the functions are g++'s as well.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void *, size_t),
                                                         void (*released)(const volatile void *));
extern "C" size_t __sanitizer_get_allocated_size(const volatile void *memory);
#else
#include <QFile>

#include <malloc.h>
#endif

namespace {

// What one bundle may cost in a release build.
constexpr double mostSeconds = 1;
constexpr double mostMebibytes = 64;

// How many times as long an input may take in this build. Of the hostile inputs, side by side with a release build, the
// sanitizers slow one down 4 times and another one 24 times; a build that is not optimised is between.
#if defined(__OPTIMIZE__) && !defined(FUZZ_WITH_SANITIZER)
constexpr double slowdown = 1;
#else
constexpr double slowdown = 25;
#endif

constexpr double bytesOfMebibyte = 1024 * 1024;

double processorSeconds()
{
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

#ifdef FUZZ_WITH_SANITIZER

std::atomic<qint64> held = 0;
std::atomic<qint64> mostHeld = 0;

void noteAllocation(const volatile void *, size_t size)
{
    const auto now = held += static_cast<qint64>(size);
    auto most = mostHeld.load();
    while (now > most && !mostHeld.compare_exchange_weak(most, now)) { }
}

void noteRelease(const volatile void *memory)
{
    held -= memory ? static_cast<qint64>(__sanitizer_get_allocated_size(memory)) : 0;
}

/// The sanitizer tells of every allocation what was asked for: without its own surroundings, and without what it keeps
/// back.
class Memory
{
public:
    Memory()
    {
        static const int installed = __sanitizer_install_malloc_and_free_hooks(noteAllocation, noteRelease);
        require(installed != 0);
        m_before = held;
        mostHeld = m_before;
    }
    double mebibytes() const { return static_cast<double>(mostHeld - m_before) / bytesOfMebibyte; }

private:
    qint64 m_before;
};

#else

/// Bytes of a line of /proc/self/status.
qint64 statusOf(const char *name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    require(file.open(QFile::ReadOnly));
    for (const auto &line : file.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.simplified().split(' ').at(1).toLongLong() * 1024;
    }
    return 0;
}

/// By the kernel, which forgets the most memory that a program had when it is asked to. What the C library keeps for
/// later is given back before.
class Memory
{
public:
    Memory()
    {
        malloc_trim(0);
        QFile file(QStringLiteral("/proc/self/clear_refs"));
        require(file.open(QFile::WriteOnly) && file.write("5") == 1);
        file.close();
        m_before = statusOf("VmRSS:");
    }
    double mebibytes() const
    {
        return std::max<double>(0, static_cast<double>(statusOf("VmHWM:") - m_before)) / bytesOfMebibyte;
    }

private:
    qint64 m_before;
};

#endif

} // namespace

Cost measuredReading(const QByteArray &input)
{
    const Memory memory;
    const auto start = processorSeconds();
    readInput(input);
    const Cost cost{processorSeconds() - start, memory.mebibytes()};
    if (cost.seconds > mostSeconds * slowdown || cost.mebibytes > mostMebibytes) {
        std::fprintf(stderr,
                     "An input of %lld bytes costs %.2f s and %.1f MiB; at most %.0f s and %.0f MiB are right\n",
                     static_cast<long long>(input.size()), cost.seconds, cost.mebibytes, mostSeconds * slowdown,
                     mostMebibytes);
        std::abort();
    }
    return cost;
}
