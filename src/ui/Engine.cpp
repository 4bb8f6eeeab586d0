#include "Engine.h"

#include "AccessibleButton.h"

#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>

// Written by the build: makes the QML module's C++ types known. A library that is linked statically has to be
// asked.
void qml_register_types_Tarnvale();

namespace {

void dressApplication()
{
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Tarnvale"));
    // Ties the window to its desktop entry, where the desktop has it from the entry alone which icon it shows.
    QGuiApplication::setDesktopFileName(QStringLiteral("com.example.Tarnvale"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/qt/qml/Tarnvale/icon.svg")));

    auto font = QGuiApplication::font();
    font.setFamilies({QStringLiteral("Inter"), font.family()});
    QGuiApplication::setFont(font);
    // Text is small: the desktop's own rasteriser draws it sharper than scaled outlines are.
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    // For Qt's own dialogs alone, as our controls have no style; it is the one that takes all of the palette.
    QQuickStyle::setStyle(QStringLiteral("Fusion"));
}

} // namespace

std::unique_ptr<QQmlApplicationEngine> makeEngine()
{
    qml_register_types_Tarnvale();
    installAccessibleButtons();
    dressApplication();
    // Qt 6.8 keeps views and shaders that it has compiled in the user's cache folder.
    // Read once, by the first engine.
    qputenv("QML_DISK_CACHE", "aot");
    QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache);
    auto engine = std::make_unique<QQmlApplicationEngine>();
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    return engine;
}
