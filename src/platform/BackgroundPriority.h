#pragma once

/// How much a piece of background work may take from what the user is doing.
enum class TaskPriority {
    /// The user waits for it.
    userInitiated,
    /// It may take longer, and gives way to other programs.
    utility
};

class BackgroundPriority
{
public:
    virtual ~BackgroundPriority() = default;

    /// Gives the calling thread the processor and disk priority of `priority`, for good. Has no effect where the
    /// system refuses.
    virtual void apply(TaskPriority priority) const = 0;
};
