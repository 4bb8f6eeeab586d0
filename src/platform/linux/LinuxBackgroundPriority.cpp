#include "LinuxBackgroundPriority.h"

#include <algorithm>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// Half of the way down: it still gets on while another program keeps the processor busy.
constexpr int utilityNiceness = 10;

// ioprio_set(2) has no wrapper in the C library, and the kernel's header for it is not always C++ (`int class` in an
// update of 6.1): these are the call's own figures, which cannot change.
constexpr int processOrThread = 1;
constexpr int bestEffortClass = 2;
constexpr int classShift = 13;
// The last of the ordinary levels. The idle class may wait for ever on a busy disk.
constexpr int utilityDiskPriority = bestEffortClass << classShift | 7;

} // namespace

void LinuxBackgroundPriority::apply(TaskPriority priority) const
{
    // What the user waits for runs as the program itself does.
    if (priority != TaskPriority::utility)
        return;
    const auto thread = static_cast<id_t>(gettid());
    setpriority(PRIO_PROCESS, thread, std::max(utilityNiceness, getpriority(PRIO_PROCESS, thread)));
    syscall(SYS_ioprio_set, processOrThread, thread, utilityDiskPriority);
}

bool LinuxBackgroundPriority::isLowered()
{
    return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()))
           > getpriority(PRIO_PROCESS, static_cast<id_t>(getpid()));
}
