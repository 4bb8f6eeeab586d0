#pragma once

#include <memory>
#include <stop_token>

class Appearance;
class AppViewModel;
class BundleIconProvider;
class QQmlApplicationEngine;
class QQuickWindow;
class Workspace;
struct Platform;

/// The program in its window: the one state object and what shows it. Created after the QGuiApplication, on the
/// main thread; the window opens at once.
class TarnvaleApp
{
public:
    /// The services outlive the program.
    TarnvaleApp(const Platform &platform, Appearance &appearance);
    ~TarnvaleApp();

    /// Runs the program until it is quit and answers its exit code. Then scans are told by `stop` to end, and the moves
    /// that are under way are finished. What still hangs in the system a second later, like a scan of a network mount
    /// that cannot be reached, has only read: the process ends here and leaves it behind, with all that it uses.
    int run(std::stop_source stop);

    AppViewModel &viewModel() { return *m_viewModel; }
    QQuickWindow &window();

private:
    Workspace &m_workspace;
    std::unique_ptr<AppViewModel> m_viewModel;
    // Closed before the state goes.
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    // The engine's own.
    BundleIconProvider *m_icons;
};
