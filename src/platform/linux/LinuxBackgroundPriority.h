#pragma once

#include "BackgroundPriority.h"

/// Gives way by the nice value and the disk priority of the one thread; never raises either.
class LinuxBackgroundPriority final : public BackgroundPriority
{
public:
    void apply(TaskPriority priority) const override;

    /// Whether the calling thread gives way more than the program itself does. Threads that it makes do as well.
    static bool isLowered();
};
