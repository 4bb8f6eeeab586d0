#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

/// A folder DEPTH levels deep under `top`, every level with a file "a", a folder "b" that holds one, and, as the way
/// down, a folder "m". As no path is that long, it is made and taken away from within.
class DeepTree
{
public:
    DeepTree(std::filesystem::path top, int depth) : m_top(std::move(top))
    {
        std::filesystem::create_directories(m_top);
        int folder = open(m_top.c_str(), O_PATH | O_DIRECTORY);
        for (int i = 0; i < depth; ++i) {
            close(openat(folder, "a", O_CREAT | O_WRONLY, 0644));
            mkdirat(folder, "b", 0755);
            close(openat(folder, "b/a", O_CREAT | O_WRONLY, 0644));
            mkdirat(folder, "m", 0755);
            const int next = openat(folder, "m", O_PATH | O_DIRECTORY);
            close(folder);
            folder = next;
        }
        close(folder);
    }
    ~DeepTree() { std::system(("rm -rf '" + m_top.string() + "'").c_str()); }

private:
    std::filesystem::path m_top;
};
