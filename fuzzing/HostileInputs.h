#pragma once

#include <QByteArray>

#include <vector>

/// An input that once cost a reader of its kind seconds to hours, or that could.
struct HostileInput
{
    /// The fuzzing program that reads it.
    const char *reader;
    const char *name;
    QByteArray content;
};

/// All of them, some of 8 MB. With a `scale` below 1 they are so much smaller: the same shapes to invent others from.
std::vector<HostileInput> hostileInputs(double scale = 1);
