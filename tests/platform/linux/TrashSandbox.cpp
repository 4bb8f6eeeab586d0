#include "TrashSandbox.h"

#include "LinuxWorkspace.h"

#include <QProcess>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <unistd.h>

namespace fs = std::filesystem;

static std::atomic currentFault = TrashSandbox::Fault::none;

// The linker puts these in the place of the C library's functions.
extern "C" int __real_renameat2(int, const char *, int, const char *, unsigned);
extern "C" int __wrap_renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags)
{
    if (currentFault == TrashSandbox::Fault::plainRenameOnly) {
        errno = EINVAL;
        return -1;
    }
    const auto answer = __real_renameat2(fromFolder, from, toFolder, to, flags);
    if (currentFault != TrashSandbox::Fault::answerIsLost || answer != 0)
        return answer;
    errno = EIO;
    return -1;
}

extern "C" int __real_fdatasync(int);
extern "C" int __wrap_fdatasync(int file)
{
    if (currentFault != TrashSandbox::Fault::writingThroughFails)
        return __real_fdatasync(file);
    errno = EIO;
    return -1;
}

TrashSandbox::TrashSandbox(const char *folder) : m_disk(folder)
{
    qputenv("HOME", home());
    qputenv("XDG_DATA_HOME", home() + "/.local/share");
}

void TrashSandbox::setFault(Fault fault)
{
    currentFault = fault;
}

OrdinaryUser TrashSandbox::giveToOrdinaryUser() const
{
    if (getuid() == 0)
        run("chown", {"-hR", QString::number(OrdinaryUser::number), QString::fromUtf8(home())});
    return {};
}

QByteArray TrashSandbox::snapshot(const QByteArray &path) const
{
    // A folder's time changes when something in it goes and comes back.
    return run("sh", {"-ec",
                      "cd \"$0\"; find . -type f -printf '%p %m %T@\\n' -o -printf '%p %m %l\\n' | LC_ALL=C sort; "
                      "find . -type f -exec cksum {} + | LC_ALL=C sort",
                      QString::fromUtf8(url(path).path())});
}

std::map<QByteArray, QByteArray> TrashSandbox::trashed(const QByteArray &trash, const QByteArray &topDirectory)
{
    std::map<QByteArray, QByteArray> items;
    const fs::path folder(trash.toStdString());
    if (!fs::exists(folder / "files"))
        return items;
    for (const auto &item : fs::directory_iterator(folder / "files")) {
        const auto recordPath = folder / "info" / (item.path().filename().string() + ".trashinfo");
        std::ifstream record(recordPath);
        std::string origin;
        while (!origin.starts_with("Path=") && std::getline(record, origin)) { }
        EXPECT_TRUE(record) << recordPath;
        auto path = QByteArray::fromPercentEncoding(origin.substr(std::min<size_t>(5, origin.size())).c_str());
        if (!path.startsWith('/'))
            path.prepend(topDirectory + '/');
        EXPECT_TRUE(items.emplace(path, item.path().c_str()).second) << path.data() << " came here twice";
    }
    return items;
}

std::vector<std::string> TrashSandbox::recycle(const QList<Url> &items, const QByteArray &disk)
{
    LinuxWorkspace workspace{DiskRoot(disk)};
    std::vector<std::string> outcomes;
    for (const auto &item : items) {
        const auto answer = workspace.recycle(item).result();
        EXPECT_NE(answer.error.has_value(), answer.movedItems.contains(item)) << item.path().data();
        outcomes.push_back(answer.error ? answer.error->toStdString()
                                        : "moved " + answer.movedItems.value(item).toUri().toStdString());
    }
    return outcomes;
}

QByteArray TrashSandbox::run(const QString &program, const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60'000) && process.exitCode() == 0)
        << qPrintable(program) << ": " << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}
