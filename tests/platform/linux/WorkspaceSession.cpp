#include "DiskBundleReader.h"
#include "DiskRoot.h"
#include "LinuxFileSystem.h"
#include "LinuxWorkspace.h"
#include "TrashService.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <string>

// A file system that cannot promise to replace nothing, as most across a network, or whose answer gets lost there.
extern "C" int __real_renameat2(int, const char *, int, const char *, unsigned);
extern "C" int __wrap_renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags)
{
    const auto answer =
        std::getenv("PLAIN_RENAME_ONLY") ? -1 : __real_renameat2(fromFolder, from, toFolder, to, flags);
    if (std::getenv("PLAIN_RENAME_ONLY"))
        errno = EINVAL;
    if (std::getenv("ANSWER_IS_LOST") && answer == 0) {
        errno = EIO;
        return -1;
    }
    return answer;
}

// A disk that loses what it was given.
extern "C" int __real_fdatasync(int);
extern "C" int __wrap_fdatasync(int file)
{
    if (!std::getenv("WRITING_THROUGH_FAILS"))
        return __real_fdatasync(file);
    errno = EIO;
    return -1;
}

namespace {

class NoHelper : public PrivilegedHelper
{
    QCoro::Task<HelperReply> moveItemsToTrash(QList<Url>, QString) override { co_return {}; }
};

// One request with all items.
void remove(const DiskRoot &disk, LinuxWorkspace &workspace)
{
    QList<ScanItem> items;
    for (std::string line; std::getline(std::cin, line);)
        items.append({Url::fromUri(line).value_or(Url()), ScanItemKind::cache, ScanConfidence::exact, 1, true});
    const LinuxFileSystem fileSystem(disk, Url("/Users/me"), {});
    const DiskBundleReader bundles(fileSystem, {}, {});
    NoHelper helper;
    TrashService service(fileSystem, bundles, workspace, helper);
    for (const auto &outcome : QCoro::waitFor(service.moveToTrash(items, std::nullopt)))
        std::cout << outcome.errorDescription.value_or("moved").toStdString() << std::endl;
}

} // namespace

// A process of its own for the tests of the Trash. Moves the items whose URIs it reads, one a line, to the Trash, and
// writes one line for each: "moved" and the URI in the Trash, "failed" and the reason, or "unknown". With "reveal" as
// its second argument it reveals them instead, writes "asked" for each, and stays; with "remove" all are one request to
// the trash service, and each line is "moved" or the reason. The first argument is the folder that stands for the
// disk, or empty.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    LinuxWorkspace workspace{DiskRoot(argv[1])};
    if (argc > 2 && qstrcmp(argv[2], "remove") == 0) {
        remove(DiskRoot(argv[1]), workspace);
        return 0;
    }
    for (std::string line; std::getline(std::cin, line);) {
        const auto item = Url::fromUri(line).value_or(Url());
        if (argc > 2) {
            workspace.reveal(item);
            std::cout << "asked" << std::endl;
            continue;
        }
        const auto answer = workspace.recycle(item).result();
        if (answer.error)
            std::cout << "failed " << answer.error->toStdString() << std::endl;
        else if (answer.movedItems.contains(item))
            std::cout << "moved " << answer.movedItems[item].toUri().toStdString() << std::endl;
        else
            std::cout << "unknown" << std::endl;
    }
    return argc > 2 ? QCoreApplication::exec() : 0;
}
