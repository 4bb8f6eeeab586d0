#include "LinuxWorkspace.h"

#include "DesktopTrash.h"
#include "FileManager.h"

#include <QtConcurrent>

#include <utility>

namespace {

RecycleAnswer recycleNow(const DiskRoot &disk, const Url &item)
{
    // What is moved is what the safety check has seen: the path with ".." resolved textually.
    const auto move = disk.hostPath(item).isEmpty() ? TrashMove{TrashFailure::itemIsMissing, {}}
                                                    : moveToDesktopTrash(disk, item.standardized());
    RecycleAnswer answer;
    if (move.failure)
        answer.error = trashFailureText(*move.failure, item.displayName(), systemLanguage());
    else
        answer.movedItems.insert(item, disk.urlFor(move.place).value_or(Url()));
    return answer;
}

} // namespace

LinuxWorkspace::LinuxWorkspace(DiskRoot disk) : m_disk(std::move(disk))
{
    m_trashThread.setMaxThreadCount(1);
}

LinuxWorkspace::~LinuxWorkspace()
{
    LinuxWorkspace::waitForMoves();
}

QFuture<RecycleAnswer> LinuxWorkspace::recycle(const Url &item)
{
    return QtConcurrent::run(&m_trashThread, recycleNow, m_disk, item);
}

void LinuxWorkspace::waitForMoves()
{
    m_trashThread.waitForDone();
}

void LinuxWorkspace::reveal(const Url &item)
{
    auto path = m_disk.hostPath(item);
    // The file manager would resolve the links of a disk in a folder as this computer's.
    if (!m_disk.prefix().isEmpty()) {
        const auto folder = m_disk.resolvedHostPath(item.standardized().parent());
        path = folder ? (Url(*folder) / item.standardized().lastPathComponent()).path() : QByteArray();
    }
    if (!path.isEmpty())
        showInFileManager(path);
}

std::optional<Url> LinuxWorkspace::locationOnDisk(const Url &location) const
{
    return m_disk.urlFor(location.path());
}

bool LinuxWorkspace::startAccessing(const Url &)
{
    return false;
}

void LinuxWorkspace::stopAccessing(const Url &) { }
