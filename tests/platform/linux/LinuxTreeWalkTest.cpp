#include "AllocatedSize.h"
#include "DeepTree.h"
#include "FileDescriptor.h"
#include "HangingMount.h"
#include "LinuxFileSystem.h"
#include "OrderedResults.h"
#include "RandomTree.h"
#include "TaskStack.h"
#include "TemporaryDisk.h"

#include <QScopeGuard>

#include <atomic>
#include <chrono>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <future>
#include <gmock/gmock.h>
#include <map>
#include <mutex>
#include <ranges>
#include <sched.h>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

using Paths = std::vector<QByteArray>;

/// As long as the answer lives the program may have so many files open.
[[nodiscard]] static auto fewDescriptors(rlim_t most)
{
    rlimit before;
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit few{most, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    return qScopeGuard([before] { setrlimit(RLIMIT_NOFILE, &before); });
}

/// As long as it is set, listings do not say what an entry is, as those of some file systems never do.
static std::atomic<bool> typesAreHidden = false;

static ptrdiff_t openFiles()
{
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

struct LinuxTreeWalkTest : testing::Test
{
    TemporaryDisk disk;
    std::stop_source stop;
    LinuxFileSystem fileSystem{disk.root(), Url("/home"), stop.get_token()};

    /// The paths below `folder` in the order of one thread; `visit` is called at every element, by one thread at a
    /// time.
    Paths walk(const Url &folder, const std::function<void(DirectoryEntry &)> &visit = {}) const
    {
        std::mutex mutex;
        std::map<WalkPlace, QByteArray> paths;
        fileSystem.walk({folder}, [&](FolderPart &part) {
            for (auto &entry : part) {
                const std::lock_guard lock(mutex);
                EXPECT_TRUE(paths.emplace(entry.place(), entry.url().path()).second);
                if (visit)
                    visit(entry);
            }
        });
        Paths inOrder;
        std::ranges::copy(std::views::values(paths), std::back_inserter(inOrder));
        return inOrder;
    }
};

// The linker puts these in the place of the C library's function.
extern "C" ssize_t __real_getdents64(int folder, void *listing, size_t size);
extern "C" ssize_t __wrap_getdents64(int folder, void *listing, size_t size)
{
    const auto length = __real_getdents64(folder, listing, size);
    for (ssize_t next = 0; typesAreHidden && next < length;) {
        auto *listed = reinterpret_cast<dirent64 *>(static_cast<char *>(listing) + next);
        listed->d_type = DT_UNKNOWN;
        next += listed->d_reclen;
    }
    return length;
}

TEST_F(LinuxTreeWalkTest, severalThreadsAnswerWhatAFunctionThatCallsItselfSees)
{
    for (unsigned number = 0; number < 15; ++number) {
        const RandomTree tree(disk, "/" + QByteArray::number(number), number);
        const auto expected = tree.walked(tree.top().path());
        typesAreHidden = number % 3 == 0;
        const auto few = fewDescriptors(number % 2 == 0 ? 64 : 1024);
        const auto limit = std::ssize(expected) / 3 + 1;
        OrderedResults<RandomTree::Entry> all(1'000'000), first(limit);
        fileSystem.walk({tree.top()}, [&](FolderPart &part) {
            for (auto &entry : part) {
                const auto values = *entry.resourceValues();
                EXPECT_EQ(values.allocatedSize, values.totalAllocatedSize);
                const RandomTree::Entry seen{entry.url().path(), entry.type(), *values.totalAllocatedSize};
                all.add(entry.place(), seen);
                if (!first.isBehindTheLast([&entry] { return entry.place(); }))
                    first.add(entry.place(), seen);
            }
        });
        EXPECT_TRUE(std::ranges::equal(all.take(), expected)) << "number " << number;
        EXPECT_TRUE(std::ranges::equal(first.take(), expected | std::views::take(limit))) << "number " << number;

        qint64 size = 0;
        for (const auto &entry : expected) {
            if (entry.type == FileType::regular || entry.type == FileType::symbolicLink)
                size += entry.size;
        }
        EXPECT_EQ(allocatedSize(fileSystem, tree.top()), size) << "number " << number;
    }
    typesAreHidden = false;
}

TEST_F(LinuxTreeWalkTest, anyDepthIsWalkedOnFewDescriptors)
{
    for (const auto &[allowed, most, depth] :
         {std::tuple<rlim_t, ptrdiff_t, int>(1024, 256, 5000), {64, 16, 1000}}) {
        const DeepTree tree(disk.host("/top"), depth);
        // Folders whose listings take several calls, and more of them than threads may share at a time.
        for (int i = 0; i < 16'000; ++i)
            disk.file("/top" + QByteArray("/m").repeated(i % 8) + "/b/" + QByteArray::number(i));
        const auto few = fewDescriptors(allowed);
        const auto before = openFiles();
        std::atomic<int> files = 0, deepest = 0, reachable = 0;
        std::atomic<ptrdiff_t> mostOpen = 0;
        fileSystem.walk({Url("/top")}, [&](FolderPart &part) {
            for (const auto &entry : part) {
                files += entry.type() == FileType::regular && entry.resourceValues();
                if (entry.name() != "m")
                    continue;
                if (entry.level() > deepest)
                    deepest = entry.level();
                reachable += entry.level() % 1000 == 0 && fileSystem.exists(entry.url());
            }
            if (part.level() % 50 == 0 && openFiles() - before > mostOpen)
                mostOpen = openFiles() - before;
        });
        EXPECT_EQ(files, 2 * depth + 16'000);
        EXPECT_EQ(deepest, depth);
        EXPECT_EQ(reachable, depth / 1000) << "a path longer than the kernel takes leads nowhere";
        EXPECT_LE(mostOpen, most);
        EXPECT_EQ(openFiles(), before);
    }
}

TEST_F(LinuxTreeWalkTest, whatTheProgramHasOpenElsewhereCostsNoFolder)
{
    const DeepTree tree(disk.host("/top"), 100);
    const auto few = fewDescriptors(64);
    std::vector<FileDescriptor> taken;
    do
        taken.emplace_back(open("/dev/null", O_RDONLY | O_CLOEXEC));
    while (taken.back().isOpen());
    taken.resize(taken.size() - 8);
    EXPECT_EQ(walk(Url("/top")).size(), 4 * 100);
}

TEST_F(LinuxTreeWalkTest, aFolderThatIsMovedAwayOrReplacedWhileItIsWalkedDoesNotLeadOutOfTheTree)
{
    const auto isForeign = [](const QByteArray &path) { return path.contains("stranger"); };
    const auto few = fewDescriptors(64);
    for (const bool isReplaced : {false, true}) {
        const DeepTree tree(disk.host("/top"), 100);
        const DeepTree elsewhere(disk.host("/elsewhere"), 0);
        disk.file("/elsewhere/stranger");
        const QByteArray moved = "/top" + QByteArray("/m").repeated(20);
        const auto paths = walk(Url("/top"), [&](auto &entry) {
            EXPECT_TRUE(entry.resourceValues()) << "it is looked up in the folder that it was listed in";
            if (entry.level() != 90 || std::filesystem::exists(disk.host("/elsewhere/m")))
                return;
            std::filesystem::rename(disk.host(moved), disk.host("/elsewhere/m"));
            if (isReplaced) {
                disk.file(moved + "/m/stranger");
                disk.file(moved + "/b/stranger");
            }
        });
        EXPECT_TRUE(std::filesystem::exists(disk.host("/elsewhere/m")));
        EXPECT_TRUE(std::ranges::none_of(paths, isForeign)) << isReplaced;
        // All that is left at its place is found again: the files of the levels above.
        for (int level = 0; level < 20; ++level)
            EXPECT_THAT(paths, Contains("/top" + QByteArray("/m").repeated(level) + "/a")) << isReplaced;
    }
}

TEST_F(LinuxTreeWalkTest, whatBecomesALinkOrVanishesAfterItWasListedIsPassedOver)
{
    for (const char *path : {"/top/a/1", "/top/b/2", "/top/c/3"})
        disk.file(path);
    disk.file("/elsewhere/private");
    const auto paths = walk(Url("/top"), [&](auto &entry) {
        std::filesystem::remove_all(disk.host(entry.url().path()));
        disk.link(entry.url().path(), "../elsewhere");
    });
    EXPECT_THAT(paths, UnorderedElementsAre("/top/a", "/top/b", "/top/c"));

    disk.file("/bottom/only");
    walk(Url("/bottom"), [&](auto &entry) {
        std::filesystem::remove(disk.host("/bottom/only"));
        EXPECT_FALSE(entry.resourceValues());
    });
}

TEST_F(LinuxTreeWalkTest, everyEntryOfALargeFolderIsListedOnceUntilTheProgramQuits)
{
    constexpr int count = 20'000;
    disk.file("/top/0");
    for (int i = 1; i < count; ++i)
        std::filesystem::create_hard_link(disk.host("/top/0"), disk.host("/top/" + QByteArray::number(i)));
    const auto paths = walk(Url("/top"));
    EXPECT_THAT(paths, SizeIs(count));
    std::set<QByteArray> listed;
    for (const auto &entry : fileSystem.contentsOfDirectory(Url("/top")))
        EXPECT_TRUE(listed.insert(entry.url().path()).second);
    EXPECT_EQ(std::set(paths.begin(), paths.end()), listed);

    auto listing = fileSystem.contentsOfDirectory(Url("/top"));
    auto listedNext = listing.begin();
    const auto walkThatIsStopped = [&] { return walk(Url("/top"), [&](auto &) { stop.request_stop(); }); };
    EXPECT_LE(walkThatIsStopped().size(), 16) << "one for each thread at most";
    EXPECT_THAT(walkThatIsStopped(), IsEmpty());
    EXPECT_TRUE(++listedNext == std::default_sentinel) << "one in progress ends where it stands";
}

TEST_F(LinuxTreeWalkTest, aFileSystemThatHangsHoldsUpNoOtherFolderAndNotTheEnd)
{
    for (int i = 0; i < 50; ++i)
        disk.file("/top/" + QByteArray::number(i) + "/file");
    disk.folder("/top/hanging");
    auto mount = std::make_unique<HangingMount>(disk.host("/top/hanging"));
    if (!mount->isMounted)
        GTEST_SKIP() << "NOT TESTED: a file system that hangs; only root can mount one";

    std::atomic<int> files = 0;
    const auto walk = std::async(std::launch::async, [&] {
        // Of this thread and of what it starts.
        cpu_set_t oneCore;
        CPU_ZERO(&oneCore);
        CPU_SET(sched_getcpu(), &oneCore);
        sched_setaffinity(0, sizeof oneCore, &oneCore);
        const QList<Url> folders{Url("/top/hanging"), Url("/top/hanging/below"), Url("/top")};
        const auto visit = [&files](FolderPart &part) {
            for (const auto &entry : part)
                files += entry.type() == FileType::regular;
        };
        fileSystem.walk(folders, visit,
                        [&](size_t index) { return fileSystem.exists(folders[qsizetype(index)]); });
    });
    for (int i = 0; i < 100 && files < 50; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(files, 50);
    EXPECT_EQ(walk.wait_for(std::chrono::milliseconds(0)), std::future_status::timeout);
    mount.reset();
    EXPECT_EQ(walk.wait_for(std::chrono::seconds(10)), std::future_status::ready);
}

TEST(TaskStackTest, threadsBecomeMoreWhileTasksWaitAndFewerAfterwards)
{
    using namespace std::chrono_literals;
    using Clock = std::chrono::steady_clock;
    TaskStack stack({2, 16}, {});
    const auto mostAtOnce = [&stack](size_t count, const std::function<void()> &work) {
        std::atomic<int> working = 0, most = 0;
        const auto counted = [&] {
            const int now = ++working;
            for (int before = most; before < now && !most.compare_exchange_weak(before, now);) { }
            work();
            --working;
        };
        stack.push(std::vector<TaskStack::Task>(count, counted));
        stack.run();
        return most.load();
    };
    const auto busy = [] {
        for (const auto start = Clock::now(); Clock::now() - start < 100us;) { }
    };
    EXPECT_GT(mostAtOnce(200, [] { std::this_thread::sleep_for(1ms); }), 8);
    mostAtOnce(1000, busy);
    EXPECT_LE(mostAtOnce(50, busy), 4);
}

TEST_F(LinuxTreeWalkTest, aThreadThatGivesWayHasHelpersThatDo)
{
    for (int i = 0; i < 200; ++i)
        disk.file("/top/" + QByteArray::number(i) + "/file");
    std::mutex mutex;
    std::map<pid_t, int> niceness;
    // The tests may run at a low priority themselves.
    const auto ownNiceness = getpriority(PRIO_PROCESS, static_cast<id_t>(getpid()));
    std::thread([&] {
        setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), ownNiceness + 5);
        fileSystem.walk({Url("/top")}, [&](FolderPart &part) {
            for (const auto &entry : part)
                entry.resourceValues();
            // As if for a disk: others are called meanwhile.
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            const std::lock_guard lock(mutex);
            niceness[gettid()] = getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
        });
    }).join();
    EXPECT_GT(niceness.size(), 1);
    EXPECT_LE(niceness.size(), 8);
    for (const auto &[thread, value] : niceness)
        EXPECT_GT(value, ownNiceness);
}
