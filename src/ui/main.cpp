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
    const std::stop_source stop;
    LinuxPlatform platform(folderChooser, stop.get_token());
    TarnvaleApp program(platform.services(), appearance);

    return program.run(stop);
}
