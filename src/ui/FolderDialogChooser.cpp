#include "FolderDialogChooser.h"

#include "ReadyFuture.h"

#include <QFile>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

#include <utility>

namespace {

QQuickWindow *programWindow()
{
    for (auto *window : QGuiApplication::topLevelWindows()) {
        if (auto *quickWindow = qobject_cast<QQuickWindow *>(window); quickWindow && qmlEngine(quickWindow))
            return quickWindow;
    }
    return nullptr;
}

} // namespace

FolderDialogChooser::FolderDialogChooser(const QByteArray &firstFolder)
    : m_firstFolder(QUrl::fromLocalFile(QFile::decodeName(firstFolder)))
{
}

QString FolderDialogChooser::parentWindow()
{
    const auto *window = programWindow();
    return window && QGuiApplication::platformName() == QLatin1String("xcb")
               ? QStringLiteral("x11:%1").arg(window->winId(), 0, 16)
               : QString();
}

QFuture<std::optional<Url>> FolderDialogChooser::chooseFolder(const QString &title, const QString &prompt)
{
    auto *window = programWindow();
    if (!window || m_dialog)
        return readyFuture(std::optional<Url>());

    // Loaded when it is first needed: the dialogs' module is large.
    QQmlComponent component(qmlEngine(window), QUrl(QStringLiteral("qrc:/qt/qml/Tarnvale/FolderPanel.qml")));
    m_dialog.reset(component.createWithInitialProperties({
        {QStringLiteral("title"), title},
        {QStringLiteral("acceptLabel"), prompt},
        {QStringLiteral("currentFolder"), m_firstFolder},
        {QStringLiteral("parentWindow"), QVariant::fromValue<QWindow *>(window)},
    }));
    connect(m_dialog.get(), SIGNAL(accepted()), this, SLOT(accept()));
    connect(m_dialog.get(), SIGNAL(rejected()), this, SLOT(reject()));

    m_promise = {};
    m_promise.start();
    QMetaObject::invokeMethod(m_dialog.get(), "open");
    return m_promise.future();
}

void FolderDialogChooser::accept()
{
    const auto folder = m_dialog->property("selectedFolder").toUrl();
    answer(Url::fromUri(folder.toEncoded()));
}

void FolderDialogChooser::reject()
{
    answer(std::nullopt);
}

void FolderDialogChooser::answer(const std::optional<Url> &folder)
{
    // Not deleted at once: it is the dialog that calls.
    m_dialog.release()->deleteLater();
    // A dialog with a window of its own leaves the keyboard to nobody where no window manager looks after it.
    if (auto *window = programWindow())
        QMetaObject::invokeMethod(window, &QWindow::requestActivate, Qt::QueuedConnection);
    m_promise.addResult(folder);
    m_promise.finish();
}
