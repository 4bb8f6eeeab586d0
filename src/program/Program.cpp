#include "Program.h"

#include <QDir>
#include <QFile>

Program::Program()
    : m_folderDialog(QFile::encodeName(QDir::homePath())),
      m_folderChooser(m_folderDialog, QFile::encodeName(QDir::homePath()), &FolderDialogChooser::parentWindow),
      m_platform(m_folderChooser, m_stop.get_token()), m_app(m_platform.services(), m_appearance)
{
}

Program::Program(const DiskRoot &root, const Url &home, const MacDisk &disk)
    : m_folderDialog(root.hostPath(home)),
      m_folderChooser(m_folderDialog, root.hostPath(home), &FolderDialogChooser::parentWindow), m_disk(disk),
      m_platform(root, home, m_folderChooser, m_stop.get_token(), &m_disk),
      m_app(m_platform.services(), m_appearance)
{
}
