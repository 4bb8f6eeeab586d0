#pragma once

#include "Url.h"

#include <QString>

/// A Mac-shaped disk in a folder of this computer: applications with their data, an operating system's own, what
/// applications left behind, caches and logs, media and documents, and a home with a Trash of its own. Sizes are
/// allocated, not written.
class SampleDisk
{
public:
    /// `folder` is an absolute path of this computer. Nothing happens yet.
    explicit SampleDisk(QString folder);

    /// Builds the disk anew. A folder that is there is replaced, but only when it is a sample disk itself:
    /// anything else is left alone. Why it could not be built, worded for the user; empty when it was.
    QString build() const;

    const QString &folder() const { return m_folder; }

    /// The home folder as the disk's own path.
    Url home() const;

    /// The home folder and the folder for applications' data that holds the Trash, as paths of this computer.
    QString homePath() const;
    QString dataHomePath() const { return homePath() + QStringLiteral("/.local/share"); }

    /// The folder with what the kernel of the computer tells that the disk plays to be in: a laptop.
    QString computerPath() const { return m_folder + QStringLiteral("/.computer"); }

private:
    QString m_folder;
};
