#include "TarnvaleApp.h"

#include "AppViewModel.h"
#include "Appearance.h"
#include "BundleIconProvider.h"
#include "Engine.h"
#include "Platform.h"
#include "Workspace.h"

#include <QDeadlineTimer>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>

#include <chrono>
#include <cstdio>
#include <cstdlib>

TarnvaleApp::TarnvaleApp(const Platform &platform, Appearance &appearance)
    : m_workspace(platform.workspace), m_viewModel(std::make_unique<AppViewModel>(platform)),
      m_engine(makeEngine()), m_icons(new BundleIconProvider(platform.bundleReader, platform.fileSystem))
{
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
