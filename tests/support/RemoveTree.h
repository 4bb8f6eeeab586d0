#pragma once

#include <filesystem>
#include <system_error>

/// Removes the folder at `top` with all that is in it, whoever may do so and whatever a test has locked of it; a test's
/// disk goes so. Of a path that is not there nothing happens.
inline void removeTree(const std::filesystem::path &top)
{
    namespace fs = std::filesystem;
    std::error_code failure;
    fs::remove_all(top, failure);
    if (!failure)
        return;
    // To an ordinary user a locked folder keeps what is in it. It is unlocked before it is entered.
    for (fs::recursive_directory_iterator entry(top), end; entry != end; ++entry) {
        if (!entry->is_symlink() && entry->is_directory())
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add);
    }
    fs::remove_all(top);
}
