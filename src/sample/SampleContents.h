#pragma once

#include <QList>
#include <QString>

/// One application of the sample disk.
struct SampleApplication
{
    /// The bundle; "~" is the home folder.
    const char16_t *path;
    const char16_t *name;
    const char16_t *identifier;
    /// Bytes, spread over what a bundle holds.
    qint64 size;
    /// What stands on its icon and the icon's colour; without a letter it has no icon file.
    const char16_t *letter;
    const char *color;
    /// The application group that its signature names; none when empty.
    const char16_t *group;
};

/// One file of the sample disk, with as many bytes on disk.
struct SampleFile
{
    const char16_t *path;
    qint64 size;
};

/// A link, by a path relative to its folder.
struct SampleLink
{
    const char16_t *path;
    const char16_t *target;
};

/// What the kernel tells in one file.
struct SampleFact
{
    const char16_t *path;
    const char *content;
};

/// What stands on the sample disk.
namespace SampleContents {

/// The home folder on the disk.
inline const QString home = QStringLiteral("/Users/ada");

const QList<SampleApplication> &applications();
const QList<SampleFile> &files();
const QList<SampleLink> &links();
const QList<SampleFact> &facts();

} // namespace SampleContents
