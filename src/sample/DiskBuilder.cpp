#include "DiskBuilder.h"

#include <QDir>
#include <QFileInfo>

#include <fcntl.h>
#include <utility>

DiskBuilder::DiskBuilder(QString folder, QString home) : m_folder(std::move(folder)), m_home(std::move(home)) { }

void DiskBuilder::makeFolder(const QString &path)
{
    if (m_error.isEmpty() && !QDir().mkpath(hostPath(path)))
        m_error = QStringLiteral("The folder %1 could not be made.").arg(hostPath(path));
}

void DiskBuilder::allocateFile(const QString &path, qint64 size)
{
    QFile file(hostPath(path));
    if (open(file, path) && posix_fallocate(file.handle(), 0, size) != 0)
        m_error = QStringLiteral("There is no room for %1.").arg(file.fileName());
}

void DiskBuilder::writeFile(const QString &path, const QByteArray &content)
{
    QFile file(hostPath(path));
    if (open(file, path) && file.write(content) != content.size())
        m_error = QStringLiteral("%1 could not be written: %2").arg(file.fileName(), file.errorString());
}

void DiskBuilder::makeLink(const QString &path, const QString &target)
{
    makeFolder(QFileInfo(path).path());
    if (m_error.isEmpty() && !QFile::link(target, hostPath(path)))
        m_error = QStringLiteral("The link %1 could not be made.").arg(hostPath(path));
}

QString DiskBuilder::hostPath(const QString &path) const
{
    return m_folder + (path.startsWith(u'~') ? m_home + path.mid(1) : path);
}

bool DiskBuilder::open(QFile &file, const QString &path)
{
    makeFolder(QFileInfo(path).path());
    if (m_error.isEmpty() && !file.open(QIODevice::WriteOnly))
        m_error = QStringLiteral("%1 could not be written: %2").arg(file.fileName(), file.errorString());
    return m_error.isEmpty();
}
