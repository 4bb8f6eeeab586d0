#include "Surroundings.h"

#include <QByteArray>

void setSurroundings()
{
    qputenv("LC_ALL", "C.UTF-8");
    for (const auto *name :
         {"LANGUAGE", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_CURRENT_DESKTOP",
          "QT_QPA_PLATFORMTHEME", "QT_QUICK_CONTROLS_STYLE", "QT_SCALE_FACTOR", "QT_FONT_DPI"})
        qunsetenv(name);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QML_DISABLE_DISK_CACHE", "1");
}
