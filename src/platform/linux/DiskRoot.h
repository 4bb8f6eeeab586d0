#pragma once

#include "Url.h"

#include <QByteArray>

#include <optional>

/// Where on this computer the disk lies that the program works on: nowhere special in the product, a folder for
/// the tests and the sample disk, so that these run the product's own code. Every service of this folder takes its
/// paths through the one object. A value; any thread.
class DiskRoot
{
public:
    /// The computer's own root.
    DiskRoot() = default;

    /// The folder `prefix` of this computer: absolute, free of links and of ".." .
    explicit DiskRoot(QByteArray prefix);

    /// The folder that the disk lies in, without a trailing separator; empty for the computer's own root.
    const QByteArray &prefix() const { return m_prefix; }

    /// The path to hand to the operating system. Empty, which leads to nothing, for a location that no file can
    /// have: no path, a relative one, or one with a byte of value zero. With a prefix, ".." is resolved beforehand
    /// and cannot lead out of the disk.
    QByteArray hostPath(const Url &url) const;

    /// The location that `hostPath` is on this disk; absent when it is not absolute or outside of the disk. Links
    /// are not resolved.
    std::optional<Url> urlFor(const QByteArray &hostPath) const;

private:
    QByteArray m_prefix;
};
