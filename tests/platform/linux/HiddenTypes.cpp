#include "HiddenTypes.h"

#include <atomic>
#include <dirent.h>

namespace {

std::atomic<bool> typesAreHidden = false;

} // namespace

HiddenTypes::HiddenTypes(bool areHidden)
{
    typesAreHidden = areHidden;
}

HiddenTypes::~HiddenTypes()
{
    typesAreHidden = false;
}

// The linker puts these in the place of the C library's function.
extern "C" ssize_t __real_getdents64(int folder, void *listing, size_t size);
extern "C" ssize_t __wrap_getdents64(int folder, void *listing, size_t size)
{
    const auto length = __real_getdents64(folder, listing, size);
    auto *entry = static_cast<char *>(listing);
    for (const auto *const end = entry + length; typesAreHidden && length > 0 && entry < end;) {
        auto *listed = reinterpret_cast<dirent64 *>(entry);
        listed->d_type = DT_UNKNOWN;
        entry += listed->d_reclen;
    }
    return length;
}
