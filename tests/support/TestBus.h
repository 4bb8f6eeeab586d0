#pragma once

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFutureWatcher>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>

/// A message bus of the test's own: a real dbus-daemon on an address of its own, which starts the services that it
/// is given. It ends with the object.
class TestBus
{
public:
    /// Listens at `socket`; in a folder of its own when that is empty. Every user may connect.
    explicit TestBus(const QString &socket = {}) : m_socket(socket.isEmpty() ? m_folder.filePath("bus") : socket)
    {
        QDir(m_folder.path()).mkdir("services");
        const QString form =
            "<busconfig><type>session</type><listen>%1</listen><servicedir>%2/services</servicedir>"
            "<policy context=\"default\"><allow user=\"*\"/><allow send_destination=\"*\"/>"
            "<allow own=\"*\"/><allow receive_sender=\"*\"/></policy></busconfig>";
        write("bus.conf", form.arg(address(), m_folder.path()));
        m_daemon.start("dbus-daemon",
                       {"--config-file=" + m_folder.filePath("bus.conf"), "--nofork", "--print-address"});
        EXPECT_TRUE(m_daemon.waitForReadyRead()) << "dbus-daemon does not start";
    }
    ~TestBus() { kill(); }

    QString address() const { return "unix:path=" + m_socket; }

    /// Lets the bus start `command` when `name` is called.
    void addService(const QString &name, const QString &command)
    {
        write("services/" + name + ".service", QString("[D-BUS Service]\nName=%1\nExec=%2\n").arg(name, command));
    }

    /// The bus stays as it is, but does not answer until it is thawed.
    void freeze() { ::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP); }
    void thaw() { ::kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT); }

    void kill()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

private:
    void write(const QString &name, const QString &content)
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.toUtf8());
    }

    QTemporaryDir m_folder;
    QString m_socket;
    QProcess m_daemon;
};

/// What `future` brings, waited for in an event loop.
template <typename Result> Result waitFor(const QFuture<Result> &future)
{
    QEventLoop loop;
    QFutureWatcher<Result> watcher;
    QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
    watcher.setFuture(future);
    loop.exec();
    return future.result();
}
