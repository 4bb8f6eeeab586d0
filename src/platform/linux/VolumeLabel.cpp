#include "VolumeLabel.h"

#include <QByteArray>
#include <QDirIterator>
#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

const auto labelFolder = QStringLiteral("/dev/disk/by-label");

/// `text` with the escapes in place of the bytes that a list cannot hold: `introduction` and the digits of the
/// code.
QByteArray unescaped(const QByteArray &text, QByteArrayView introduction, int digits, int base)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < text.size();) {
        const auto code = text.mid(i + introduction.size(), digits);
        bool isCode = false;
        const auto value = text.sliced(i).startsWith(introduction) ? code.toUInt(&isCode, base) : 0;
        bytes += isCode ? static_cast<char>(value) : text[i];
        i += isCode ? introduction.size() + code.size() : 1;
    }
    return bytes;
}

/// What is mounted under the number `mount`: a path in /dev for a file system on a device.
std::optional<QByteArray> mountSource(quint64 mount)
{
    QFile mounts(QStringLiteral("/proc/self/mountinfo"));
    if (!mounts.open(QIODevice::ReadOnly))
        return std::nullopt;
    // "36 35 98:0 /root /mount/point options [optional fields] - type source options"
    const auto lines = mounts.readAll().split('\n');
    for (const auto &line : lines) {
        if (!line.startsWith(QByteArray::number(mount) + ' '))
            continue;
        const auto fields = line.mid(line.indexOf(" - ") + 3).split(' ');
        if (fields.size() >= 2)
            return unescaped(fields[1], "\\", 3, 8);
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> volumeLabel(int openFile)
{
    struct statx place;
    if (statx(openFile, "", AT_EMPTY_PATH, STATX_MNT_ID, &place) != 0 || !(place.stx_mask & STATX_MNT_ID))
        return std::nullopt;
    const auto source = mountSource(place.stx_mnt_id);
    struct stat device;
    if (!source || !source->startsWith("/dev/") || stat(source->constData(), &device) != 0)
        return std::nullopt;
    for (QDirIterator labels(labelFolder, QDir::System | QDir::Files); labels.hasNext();) {
        const auto link = QFile::encodeName(labels.next());
        struct stat labelled;
        if (stat(link.constData(), &labelled) == 0 && labelled.st_rdev == device.st_rdev)
            return QString::fromUtf8(unescaped(link.mid(link.lastIndexOf('/') + 1), "\\x", 2, 16));
    }
    return std::nullopt;
}
