#pragma once

#include "DiskBundleReader.h"
#include "DiskCodeSignature.h"
#include "LinuxApplicationRegistry.h"
#include "LinuxBackgroundPriority.h"
#include "LinuxFileSystem.h"
#include "LinuxHelperService.h"
#include "LinuxSystemFacts.h"
#include "LinuxWorkspace.h"
#include "Platform.h"

/// All services of a Linux computer, built for one disk. Made and destroyed on the main thread; outlives
/// everything that uses it. Its end waits for the moves to the Trash that are under way.
class LinuxPlatform
{
public:
    /// For the computer's own disk and the user's own home folder. When `stop` is requested, every scan in
    /// progress comes to its end.
    LinuxPlatform(FolderChooser &folderChooser, const std::stop_token &stop);

    /// For the disk of `root`, with the user's home folder at `home` on it; `macDisk` says which it is where it is another
    /// Mac's, and outlives this. A disk that lies in a folder has no
    /// privileged helper but one on a system bus of its own: the computer's would take its paths for the
    /// computer's.
    LinuxPlatform(const DiskRoot &root, const Url &home, FolderChooser &folderChooser, const std::stop_token &stop,
                  const MacDisk *macDisk = nullptr);

    Q_DISABLE_COPY_MOVE(LinuxPlatform)

    const Platform &services() const { return m_services; }

    /// The home folder that the user's session names, else the one of the user's account.
    static Url userHome();

private:
    LinuxFileSystem m_fileSystem;
    DiskBundleReader m_bundleReader;
    DiskCodeSignature m_codeSignature;
    LinuxApplicationRegistry m_applicationRegistry;
    LinuxSystemFacts m_systemFacts;
    LinuxBackgroundPriority m_backgroundPriority;
    LinuxWorkspace m_workspace;
    LinuxHelperService m_helperService;
    const Platform m_services;
};
