#include "InMemoryFileSystem.h"
#include "MediaScanner.h"
#include "TestDisk.h"
#include "TextFileScanner.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

/// The search for media and the one for documents, which are one but for their tables.
struct FileFinderTest : testing::Test
{
    InMemoryFileSystem disk;
    const QSet<MediaCategory> allMedia{MediaCategory::video, MediaCategory::audio, MediaCategory::image};
    const QSet<TextFileCategory> allDocuments{TextFileCategory::plainText, TextFileCategory::richText,
                                              TextFileCategory::microsoftOffice, TextFileCategory::libreOffice,
                                              TextFileCategory::pdf};

    QList<MediaFile> media(const QSet<MediaCategory> &categories, qint64 limit = 50'000) const
    {
        return MediaScanner(disk).scanMediaFiles(Url("/disk"), categories, limit);
    }
    QList<TextFile> documents(const QSet<TextFileCategory> &categories) const
    {
        return TextFileScanner(disk).scanTextFiles(Url("/disk"), categories, 50'000);
    }
};

TEST_F(FileFinderTest, extensionDecidesInAnyCase)
{
    const auto movie = disk.file("/disk/Movie.MP4", 40);
    const auto song = disk.file("/disk/a/b/song.tar.FLAC", 30);
    const auto picture = disk.file("/disk/\xff\xfe.JpEg", 20, 10);
    const auto kelvin = disk.file("/disk/movie.m\u212av", std::nullopt, 10);
    for (const auto *name : {"vector.svg", "mp4", ".mp4", "song.mp2", "x.mp4\xff", "x.mp", "x.mp44", "x.mp\x14",
                             "x.jpg ", "x.", "x.abcdefghmp4", "x.\xff", "x.\u0142\u0142\u0142\u0142mp4"})
        disk.file(QByteArray("/disk/") + name);

    using enum MediaCategory;
    EXPECT_THAT(media(allMedia), ElementsAre(MediaFile{movie, video, 40}, MediaFile{song, audio, 30},
                                             MediaFile{picture, image, 20}, MediaFile{kelvin, video, 10}));
    EXPECT_THAT(media({audio}), ElementsAre(MediaFile{song, audio, 30}));
    EXPECT_THAT(media({}), IsEmpty());
}

TEST_F(FileFinderTest, onlyPlainFilesThatTheWalkReachesAreFound)
{
    for (const auto *path : {"Pictures/a.png", ".hidden.png", ".hidden/b.png", "Photos.photoslibrary/c.png",
                             "Game.app/Contents/d.png", "locked/e.png", "vanished.png"})
        disk.file(QByteArray("/disk/") + path);
    disk.makeUnreadable("/disk/locked");
    disk.makeVanishing("/disk/vanished.png");
    disk.link("/disk/link.png", "Pictures/a.png");
    disk.link("/disk/linked folder", "Pictures");
    disk.folder("/disk/folder.png");
    disk.device("/disk/device.png");
    EXPECT_THAT(pathsOf(media(allMedia)), ElementsAre("/disk/Pictures/a.png"));

    disk.remove("/disk");
    EXPECT_THAT(media(allMedia), IsEmpty());
    EXPECT_THAT(MediaScanner(disk).scanMediaFiles(Url(), allMedia, 10), IsEmpty());
}

TEST_F(FileFinderTest, everyExtensionOfTheTablesIsFoundInItsCategoryAndNoOther)
{
    const auto plant = [this]<typename File>(QList<File> &files, auto category, const char *extensions) {
        for (const auto &extension : QByteArray(extensions).split(' '))
            files.append({disk.file("/disk/file." + extension), category, 4096});
    };
    using enum MediaCategory;
    using enum TextFileCategory;
    QList<MediaFile> mediaFiles;
    plant(mediaFiles, video, "mp4 mov m4v mkv avi webm mpg mpeg wmv flv");
    plant(mediaFiles, audio, "mp3 m4a aac wav aiff aif flac ogg opus");
    plant(mediaFiles, image, "jpg jpeg png heic heif tiff tif gif bmp webp");
    QList<TextFile> textFiles;
    plant(textFiles, microsoftOffice,
          "doc docx docm dot dotx dotm xls xlsx xlsm xlsb xlt xltx xltm ppt pptx pptm pot potx potm pps ppsx ppsm "
          "pub vsd vsdx vsdm vst vstx vstm one");
    plant(textFiles, libreOffice, "odt ott ods ots odp otp odg otg odf odb odm");
    plant(textFiles, plainText, "txt");
    plant(textFiles, richText, "rtf");
    plant(textFiles, pdf, "pdf");
    for (const auto *decoy : {"svg", "mp2", "md", "csv", "html", "log", "tex", "mov2", "docxx", "epub"})
        disk.file(QByteArray("/disk/file.") + decoy);

    const auto among = [](auto files, auto category) {
        files.removeIf([category](const auto &file) { return file.category != category; });
        return files;
    };
    // Equal sizes keep the order of the walk.
    EXPECT_EQ(media(allMedia), mediaFiles);
    EXPECT_EQ(documents(allDocuments), textFiles);
    for (const auto category : allCases<MediaCategory>())
        EXPECT_EQ(media({category}), among(mediaFiles, category));
    for (const auto category : allCases<TextFileCategory>())
        EXPECT_EQ(documents({category}), among(textFiles, category));
}

TEST_F(FileFinderTest, limitHoldsInTheOrderOfTheWalkBeforeSorting)
{
    for (int i = 0; const qint64 size : {3, 1, 9, 3, 7})
        disk.file("/disk/" + QByteArray::number(++i) + ".mp3", size);

    EXPECT_THAT(pathsOf(media(allMedia)),
                ElementsAre("/disk/3.mp3", "/disk/5.mp3", "/disk/1.mp3", "/disk/4.mp3", "/disk/2.mp3"));
    EXPECT_THAT(pathsOf(media(allMedia, 1)), ElementsAre("/disk/1.mp3"));
    EXPECT_THAT(pathsOf(media(allMedia, 2)), ElementsAre("/disk/1.mp3", "/disk/2.mp3"));
    EXPECT_THAT(media(allMedia, 0), IsEmpty());
    EXPECT_THAT(media(allMedia, -1), IsEmpty());
}
