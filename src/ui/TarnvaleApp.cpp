#include "TarnvaleApp.h"

#include "AppViewModel.h"
#include "Appearance.h"
#include "BundleIconProvider.h"
#include "Platform.h"
#include "Workspace.h"

#include <QDeadlineTimer>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QIcon>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>

#include <chrono>
#include <cstdio>
#include <cstdlib>

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

/// An engine that leaves no files behind: Qt 6.8 keeps views and shaders that it has compiled in the user's cache folder.
std::unique_ptr<QQmlApplicationEngine> makeEngine()
{
    // Read once, by the first engine.
    qputenv("QML_DISK_CACHE", "aot");
    QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache);
    return std::make_unique<QQmlApplicationEngine>();
}

} // namespace

TarnvaleApp::TarnvaleApp(const Platform &platform, Appearance &appearance)
    : m_workspace(platform.workspace), m_viewModel(std::make_unique<AppViewModel>(platform)),
      m_engine(makeEngine()), m_icons(new BundleIconProvider(platform.bundleReader, platform.fileSystem))
{
    qml_register_types_Tarnvale();
    dressApplication();
    m_engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_engine->addImageProvider(QStringLiteral("bundles"), m_icons);

    m_engine->setInitialProperties({
        {QStringLiteral("viewModel"), QVariant::fromValue(m_viewModel.get())},
        {QStringLiteral("appearance"), QVariant::fromValue(&appearance)},
        {QStringLiteral("monospacedFamily"), QFontDatabase::systemFont(QFontDatabase::FixedFont).family()},
    });
    m_engine->load(QUrl(QStringLiteral("qrc:/qt/qml/Tarnvale/Main.qml")));
    if (m_engine->rootObjects().isEmpty())
        qFatal("the window cannot be made");
}

TarnvaleApp::~TarnvaleApp() = default;

int TarnvaleApp::run(std::stop_source stop)
{
    const auto exitCode = QGuiApplication::exec();
    const QDeadlineTimer deadline(std::chrono::seconds(1));
    stop.request_stop();
    m_workspace.waitForMoves();
    if (!m_viewModel->waitForBackground(deadline) || !m_icons->waitForIcons(deadline)) {
        std::fflush(nullptr);
        std::_Exit(exitCode);
    }
    return exitCode;
}

QQuickWindow &TarnvaleApp::window()
{
    return *qobject_cast<QQuickWindow *>(m_engine->rootObjects().constFirst());
}
