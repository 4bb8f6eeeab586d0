#include "SecondVolume.h"

#include <QProcess>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <unistd.h>

namespace {

/// What the program complains of; empty when it succeeds.
QByteArray complaintOf(const QString &program, const QByteArrayList &arguments)
{
    QStringList texts;
    for (const auto &argument : arguments)
        texts.append(QString::fromUtf8(argument));
    QProcess process;
    process.start(program, texts);
    if (process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    return program.toUtf8() + ": " + process.errorString().toUtf8() + ' ' + process.readAllStandardError();
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
    // In memory where that can be had: what is written through to it then takes no time.
    const QByteArray memory("/dev/shm");
    const auto image =
        (std::filesystem::exists(memory.toStdString()) ? memory + "/volume-" + QByteArray::number(getpid())
                                                       : folder + ".image");
    std::filesystem::create_directories(folder.toStdString());
    std::ofstream(image.toStdString()).close();
    std::filesystem::resize_file(image.toStdString(), 16 * 1024 * 1024);
    if (m_why.isEmpty())
        m_why = complaintOf("mkfs.ext4", {"-q", "-m", "0", image});
    if (m_why.isEmpty())
        m_why = complaintOf("mount", {"-o", "loop," + options, image, folder});
    // Mounted, it lives on without a name.
    std::filesystem::remove(image.toStdString());
}

SecondVolume::~SecondVolume()
{
    if (m_why.isEmpty()) {
        EXPECT_EQ(complaintOf("umount", {m_folder}), "");
    }
}

void SecondVolume::remount(const QByteArray &options) const
{
    EXPECT_EQ(complaintOf("mount", {"-o", "remount," + options, m_folder}), "");
}

void SecondVolume::fill() const
{
    std::ofstream file((m_folder + "/everything").toStdString());
    const std::string block(1024, 'x');
    while (file.write(block.data(), static_cast<std::streamsize>(block.size())).flush()) { }
}
