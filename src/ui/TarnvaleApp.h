#pragma once

#include <memory>

class Appearance;
class AppViewModel;
class QQmlApplicationEngine;
class QQuickWindow;
struct Platform;

/// The program in its window: the one state object and what shows it. Created after the QGuiApplication, on the
/// main thread; the window opens at once.
class TarnvaleApp
{
public:
    /// The services outlive the program.
    TarnvaleApp(const Platform &platform, Appearance &appearance);
    ~TarnvaleApp();

    AppViewModel &viewModel() { return *m_viewModel; }
    QQuickWindow &window();

private:
    std::unique_ptr<AppViewModel> m_viewModel;
    // Closed before the state goes.
    std::unique_ptr<QQmlApplicationEngine> m_engine;
};
