#include "LinuxWorkspace.h"

#include "DesktopTrash.h"
#include "FileManager.h"

#include <QtConcurrent>

#include <utility>

namespace {

RecycleAnswer recycleNow(const DiskRoot &disk, const Url &item)
{
    // What is moved is what the safety check has seen: the path with ".." resolved textually.
    const auto path = disk.hostPath(item).isEmpty() ? QByteArray() : disk.hostPath(item.standardized());
    const auto move =
        path.isEmpty() ? TrashMove{TrashFailure::itemIsMissing, {}} : moveToDesktopTrash(path, disk.prefix());
    RecycleAnswer answer;
    if (move.failure)
        answer.error = trashFailureText(*move.failure, item.displayName(), systemLanguage());
    else if (const auto place = disk.urlFor(move.place))
        answer.movedItems.insert(item, *place);
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
    if (const auto path = m_disk.hostPath(item); !path.isEmpty())
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
