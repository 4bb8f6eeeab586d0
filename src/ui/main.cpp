#include "AppViewModel.h"
#include "FolderDialogChooser.h"
#include "LinuxAppearance.h"
#include "LinuxFolderChooser.h"
#include "LinuxPlatform.h"
#include "TarnvaleApp.h"

#include <QGuiApplication>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);

    FolderDialogChooser folderDialog;
    LinuxFolderChooser folderChooser(folderDialog, &FolderDialogChooser::parentWindow);
    LinuxAppearance appearance;
    std::stop_source stop;
    LinuxPlatform platform(folderChooser, stop.get_token());
    TarnvaleApp program(platform.services(), appearance);

    const auto exitCode = QGuiApplication::exec();
    // Nothing is awaited any more: a scan in progress ends early, a move in progress is finished.
    stop.request_stop();
    program.viewModel().waitForBackground();
    return exitCode;
}
