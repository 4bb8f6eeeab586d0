#pragma once

#include <QtGlobal>

#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/mount.h>
#include <unistd.h>
#include <utility>

/// A file system at `folder` whose server never answers, like one that cannot be reached, until the object goes.
/// `isMounted` is false for whoever may not mount.
class HangingMount
{
public:
    explicit HangingMount(std::filesystem::path folder)
        : m_folder(std::move(folder)), m_server(open("/dev/fuse", O_RDWR | O_CLOEXEC))
    {
        const auto options = "fd=" + std::to_string(m_server) + ",rootmode=40000,user_id=0,group_id=0";
        isMounted = mount("hanging", m_folder.c_str(), "fuse", MS_NOSUID | MS_NODEV, options.c_str()) == 0;
    }
    ~HangingMount()
    {
        // Whoever waits for the server hears that there is none any more.
        close(m_server);
        if (isMounted)
            umount2(m_folder.c_str(), MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(HangingMount)

    bool isMounted = false;

private:
    const std::filesystem::path m_folder;
    const int m_server;
};
