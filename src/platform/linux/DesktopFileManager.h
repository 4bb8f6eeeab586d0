#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QObject>
#include <QThreadPool>

/// The desktop's file manager, wherever there is one. Used on the main thread.
class DesktopFileManager : public QObject
{
    Q_OBJECT

public:
    DesktopFileManager();

    /// Shows the item at `path` of this computer selected in its folder; where no file manager offers that, opens
    /// the folder. Nothing happens where neither can be had. Returns at once.
    void reveal(const QByteArray &path);

private:
    void showItem(const QDBusConnection &bus, const QByteArray &path);
    void openFolderOf(const QByteArray &path);

    // For what may block: reaching the bus, and starting another program.
    QThreadPool m_thread;
};
