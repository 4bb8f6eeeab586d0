#pragma once

#include "FolderDialogChooser.h"
#include "LinuxAppearance.h"
#include "LinuxFolderChooser.h"
#include "LinuxPlatform.h"
#include "MacDisk.h"
#include "TarnvaleApp.h"

#include <stop_token>

/// The program in its window, with the services of this computer. Made on the main thread after the QGuiApplication;
/// the window opens at once.
class Program
{
public:
    /// On the computer's own disk.
    Program();

    /// On the Mac's disk at `root`, with the home folder at `home` on it, where folder dialogs begin.
    Program(const DiskRoot &root, const Url &home, const MacDisk &disk);

    /// Until it is quit; its exit code.
    int run() { return m_app.run(m_stop); }

    TarnvaleApp &app() { return m_app; }

private:
    FolderDialogChooser m_folderDialog;
    LinuxFolderChooser m_folderChooser;
    LinuxAppearance m_appearance;
    const std::stop_source m_stop;
    const MacDisk m_disk;
    LinuxPlatform m_platform;
    TarnvaleApp m_app;
};
