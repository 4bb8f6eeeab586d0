#include "DesktopFileManager.h"

#include "Url.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QtConcurrent>

#include <gio/gio.h>

DesktopFileManager::DesktopFileManager()
{
    m_thread.setMaxThreadCount(1);
}

void DesktopFileManager::reveal(const QByteArray &path)
{
    QtConcurrent::run(&m_thread, [] {
        return QDBusConnection::sessionBus();
    }).then(this, [this, path](const QDBusConnection &bus) { showItem(bus, path); });
}

void DesktopFileManager::showItem(const QDBusConnection &bus, const QByteArray &path)
{
    auto call = QDBusMessage::createMethodCall("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                               "org.freedesktop.FileManager1", "ShowItems");
    call << QStringList(QString::fromLatin1(Url(path).toUri())) << QString();
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, path] {
        if (watcher->isError())
            openFolderOf(path);
        watcher->deleteLater();
    });
}

void DesktopFileManager::openFolderOf(const QByteArray &path)
{
    const auto folder = Url(path).parent().toUri();
    m_thread.start([folder] { g_app_info_launch_default_for_uri(folder.constData(), nullptr, nullptr); });
}
