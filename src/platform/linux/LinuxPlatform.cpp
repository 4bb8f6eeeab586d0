#include "LinuxPlatform.h"

#include <QLocale>

#include <filesystem>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace {

/// The address of the disk's own system bus; empty, which stands for the computer's, on the computer's own disk.
QByteArray systemBusOf(const DiskRoot &root)
{
    if (root.prefix().isEmpty())
        return {};
    const auto socket = root.hostPath(Url("/run/dbus/system_bus_socket"));
    return "unix:path=" + socket.toPercentEncoding("/");
}

/// The folder that the program was started from, which is what it has for a bundle off the Mac.
Url programFolder()
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return Url(QByteArray::fromStdString(program.parent_path().native()));
}

} // namespace

LinuxPlatform::LinuxPlatform(FolderChooser &folderChooser, const std::stop_token &stop)
    : LinuxPlatform(DiskRoot(), userHome(), folderChooser, stop)
{
}

LinuxPlatform::LinuxPlatform(const DiskRoot &root, const Url &home, FolderChooser &folderChooser,
                             const std::stop_token &stop, const MacDisk *macDisk)
    : m_fileSystem(root, home, stop),
      m_bundleReader(m_fileSystem, QLocale::system().uiLanguages(), programFolder(), stop),
      m_codeSignature(m_fileSystem, stop), m_applicationRegistry(root, m_fileSystem, stop), m_workspace(root),
      m_helperService(systemBusOf(root)), m_services{
                                              .fileSystem = m_fileSystem,
                                              .bundleReader = m_bundleReader,
                                              .codeSignature = m_codeSignature,
                                              .applicationRegistry = m_applicationRegistry,
                                              .systemFacts = m_systemFacts,
                                              .backgroundPriority = m_backgroundPriority,
                                              .workspace = m_workspace,
                                              .helperService = m_helperService,
                                              .folderChooser = folderChooser,
                                              .macDisk = macDisk,
                                          }
{
}

Url LinuxPlatform::userHome()
{
    const auto home = qgetenv("HOME");
    if (home.startsWith('/'))
        return Url(home);
    const auto *account = getpwuid(getuid());
    return Url(account ? account->pw_dir : "/");
}
