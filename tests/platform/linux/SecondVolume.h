#pragma once

#include <QByteArray>

/// A volume besides the one that the tests run on: a small disk in a file, mounted where only this test program and
/// what it starts can see it. Needs the rights to mount, which `why` tells about.
class SecondVolume
{
public:
    /// Mounts a new volume at `folder`, which is made, with more options of mount(8) if need be.
    explicit SecondVolume(const QByteArray &folder, const QByteArray &options = "rw");
    ~SecondVolume();
    Q_DISABLE_COPY_MOVE(SecondVolume)

    /// Why there is no such volume on this machine; empty when there is one.
    const QByteArray &why() const { return m_why; }

    void remount(const QByteArray &options) const;
    /// Leaves no byte free.
    void fill() const;

private:
    QByteArray m_folder;
    QByteArray m_why;
};

/// Ends the test, and says so loudly, where volumes cannot be mounted.
#define NEED_VOLUME(volume)                                                                                       \
    if (!(volume).why().isEmpty())                                                                                \
    GTEST_SKIP() << "NOT TESTED: a second volume cannot be mounted here: " << (volume).why().toStdString()
