#include "SecondVolume.h"

#include <QProcess>

#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <string>
#include <sys/mount.h>

namespace {

/// What the shell complains of; empty when everything in `script` succeeds.
QByteArray complaintOf(const QByteArray &script)
{
    QProcess shell;
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.start("sh", {"-ec", QString::fromUtf8(script)});
    const bool succeeds =
        shell.waitForFinished() && shell.exitStatus() == QProcess::NormalExit && shell.exitCode() == 0;
    return succeeds ? QByteArray() : script + ": " + shell.readAll();
}

/// Hides what is mounted from now on from everybody else; what mount(8) keeps notes in as well.
QByteArray hideMounts()
{
    static const bool isHidden = unshare(CLONE_NEWNS) == 0
                                 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
                                 && mount("none", "/run", "tmpfs", 0, nullptr) == 0;
    return isHidden ? QByteArray() : "no mount namespace of its own may be made";
}

} // namespace

SecondVolume::SecondVolume(const QByteArray &folder, const QByteArray &options)
    : m_folder(folder), m_why(hideMounts())
{
    // In memory where that can be had: what is written through to it then takes no time. Mounted, it lives on without a
    // name.
    if (m_why.isEmpty())
        m_why = complaintOf(
            "image=$(mktemp -p /dev/shm || mktemp); truncate -s 16M $image; mkfs.ext4 -q -m 0 $image; mkdir -p '"
            + folder + "'; mount -o loop," + options + " $image '" + folder + "'; rm $image");
}

SecondVolume::~SecondVolume()
{
    if (m_why.isEmpty()) {
        EXPECT_EQ(complaintOf("umount '" + m_folder + "'"), "");
    }
}

void SecondVolume::remount(const QByteArray &options) const
{
    EXPECT_EQ(complaintOf("mount -o remount," + options + " '" + m_folder + "'"), "");
}

void SecondVolume::fill() const
{
    std::ofstream file((m_folder + "/everything").toStdString());
    const std::string block(1024, 'x');
    while (file.write(block.data(), static_cast<std::streamsize>(block.size())).flush()) { }
}
