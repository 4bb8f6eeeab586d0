#pragma once

#include <QByteArrayList>

#include <initializer_list>
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

/// Each number in four bytes, the most significant first.
QByteArray bigEndian(std::initializer_list<quint32> numbers);

/// `objects`, the first being the root, as a binary property list with references of one byte.
QByteArray binaryList(const QByteArrayList &objects);
