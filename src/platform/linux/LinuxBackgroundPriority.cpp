#include "LinuxBackgroundPriority.h"

#include <algorithm>
#include <linux/ioprio.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// Half of the way down: it still gets on while another program keeps the processor busy.
constexpr int utilityNiceness = 10;
// The last of the ordinary levels. The idle class may wait for ever on a busy disk.
constexpr int utilityDiskPriority = IOPRIO_PRIO_VALUE(IOPRIO_CLASS_BE, 7);

} // namespace

void LinuxBackgroundPriority::apply(TaskPriority priority) const
{
    // What the user waits for runs as the program itself does.
    if (priority != TaskPriority::utility)
        return;
    const auto thread = static_cast<id_t>(gettid());
    setpriority(PRIO_PROCESS, thread, std::max(utilityNiceness, getpriority(PRIO_PROCESS, thread)));
    syscall(SYS_ioprio_set, IOPRIO_WHO_PROCESS, thread, utilityDiskPriority);
}
