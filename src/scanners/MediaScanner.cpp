#include "MediaScanner.h"

#include "ExtensionScan.h"

namespace {

constexpr std::string_view videoExtensions[] = {"mp4",  "mov", "m4v",  "mkv", "avi",
                                                "webm", "mpg", "mpeg", "wmv", "flv"};
constexpr std::string_view audioExtensions[] = {"mp3", "m4a", "aac", "wav", "aiff", "aif", "flac", "ogg", "opus"};
constexpr std::string_view imageExtensions[] = {"jpg",  "jpeg", "png", "heic", "heif",
                                                "tiff", "tif",  "gif", "bmp",  "webp"};

constexpr ExtensionTable<MediaCategory> tables[] = {
    {MediaCategory::video, videoExtensions},
    {MediaCategory::audio, audioExtensions},
    {MediaCategory::image, imageExtensions},
};

} // namespace

MediaScanner::MediaScanner(const FileSystem &fileSystem) : m_fileSystem(fileSystem) { }

QList<MediaFile> MediaScanner::scanMediaFiles(const Url &folder, const QSet<MediaCategory> &categories,
                                              qint64 limit) const
{
    return scanByExtension<MediaFile>(m_fileSystem, folder, categories, limit, tables);
}
