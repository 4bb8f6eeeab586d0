#include "InMemoryFileSystem.h"
#include "MediaScanner.h"
#include "TestDisk.h"
#include "TextFileScanner.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

/// The search for media and the one for documents, which are one but for their tables.
class FileFinderTest : public testing::Test
{
protected:
    InMemoryFileSystem disk;
    const QSet<MediaCategory> allMedia{MediaCategory::video, MediaCategory::audio, MediaCategory::image};

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
    for (const auto *name : {"vector.svg", "mp4", ".mp4", "song.mp2", "x.mp4\xff", "x.mp", "x.mp44", "x.jpg ",
                             "x.", "x.abcdefghmp4", "x.\xff", "x.\u0142\u0142\u0142\u0142mp4"})
        disk.file(QByteArray("/disk/") + name);

    using enum MediaCategory;
    EXPECT_THAT(media(allMedia), ElementsAre(MediaFile{movie, video, 40}, MediaFile{song, audio, 30},
                                             MediaFile{picture, image, 20}, MediaFile{kelvin, video, 10}));
    EXPECT_THAT(media({audio}), ElementsAre(MediaFile{song, audio, 30}));
    EXPECT_THAT(media({}), IsEmpty());
}

TEST_F(FileFinderTest, documentsHaveATableOfTheirOwn)
{
    const auto report = disk.file("/disk/Report.DOCX", 50);
    const auto note = disk.file("/disk/Notes.TXT", 40);
    const auto notebook = disk.file("/disk/Section.one", 30);
    const auto sheet = disk.file("/disk/sheet.ods", 20);
    const auto page = disk.file("/disk/page.pdf", 10);
    const auto letter = disk.file("/disk/letter.rtf", 5);
    for (const auto *name :
         {"readme.md", "table.csv", "Makefile", "movie.mp4", "essay.rtfd/TXT.rtf", "a.pages/x.pdf"})
        disk.file(QByteArray("/disk/") + name);

    using enum TextFileCategory;
    EXPECT_THAT(documents({plainText, richText, microsoftOffice, libreOffice, pdf}),
                ElementsAre(TextFile{report, microsoftOffice, 50}, TextFile{note, plainText, 40},
                            TextFile{notebook, microsoftOffice, 30}, TextFile{sheet, libreOffice, 20},
                            TextFile{page, pdf, 10}, TextFile{letter, richText, 5}));
    EXPECT_THAT(documents({pdf}), ElementsAre(TextFile{page, pdf, 10}));
}

TEST_F(FileFinderTest, onlyPlainFilesThatTheWalkReachesAreFound)
{
    disk.file("/disk/Pictures/a.png");
    disk.link("/disk/link.png", "Pictures/a.png");
    disk.link("/disk/linked folder", "Pictures");
    disk.folder("/disk/folder.png");
    disk.device("/disk/device.png");
    disk.file("/disk/.hidden.png");
    disk.file("/disk/.hidden/b.png");
    disk.file("/disk/Photos.photoslibrary/c.png");
    disk.file("/disk/Game.app/Contents/d.png");
    disk.file("/disk/locked/e.png");
    disk.makeUnreadable("/disk/locked");
    disk.file("/disk/vanished.png");
    disk.makeVanishing("/disk/vanished.png");
    EXPECT_THAT(pathsOf(media(allMedia)), ElementsAre("/disk/Pictures/a.png"));

    disk.remove("/disk");
    EXPECT_THAT(media(allMedia), IsEmpty());
    EXPECT_THAT(MediaScanner(disk).scanMediaFiles(Url(), allMedia, 10), IsEmpty());
}

TEST_F(FileFinderTest, everyExtensionOfTheTablesIsFoundInItsCategory)
{
    const auto plant = [this](const char *extensions) {
        QByteArrayList paths;
        for (const auto &extension : QByteArray(extensions).split(' '))
            paths.append("/disk/file." + extension);
        for (const auto &path : paths)
            disk.file(path);
        return paths;
    };
    const auto video = plant("mp4 mov m4v mkv avi webm mpg mpeg wmv flv");
    const auto audio = plant("mp3 m4a aac wav aiff aif flac ogg opus");
    const auto image = plant("jpg jpeg png heic heif tiff tif gif bmp webp");
    const auto office = plant(
        "doc docx docm dot dotx dotm xls xlsx xlsm xlsb xlt xltx xltm ppt pptx pptm pot potx potm pps ppsx ppsm "
        "pub vsd vsdx vsdm vst vstx vstm one");
    const auto libre = plant("odt ott ods ots odp otp odg otg odf odb odm");
    const auto plain = plant("txt");
    const auto rich = plant("rtf");
    const auto pdf = plant("pdf");
    plant("svg mp2 md csv html log tex mov2 docxx epub");

    // Equal sizes keep the order of the walk.
    using testing::ElementsAreArray;
    EXPECT_THAT(pathsOf(media(allMedia)), ElementsAreArray(video + audio + image));
    EXPECT_THAT(pathsOf(media({MediaCategory::video})), ElementsAreArray(video));
    EXPECT_THAT(pathsOf(media({MediaCategory::audio})), ElementsAreArray(audio));
    EXPECT_THAT(pathsOf(documents({TextFileCategory::microsoftOffice})), ElementsAreArray(office));
    EXPECT_THAT(pathsOf(documents({TextFileCategory::libreOffice})), ElementsAreArray(libre));
    EXPECT_THAT(pathsOf(documents({TextFileCategory::plainText})), ElementsAreArray(plain));
    EXPECT_THAT(pathsOf(documents({TextFileCategory::richText})), ElementsAreArray(rich));
    EXPECT_THAT(pathsOf(documents({TextFileCategory::pdf})), ElementsAreArray(pdf));
}

TEST_F(FileFinderTest, limitHoldsInTheOrderOfTheWalkBeforeSorting)
{
    for (int i = 0; const qint64 size : {3, 1, 9, 3, 7})
        disk.file("/disk/" + QByteArray::number(++i) + ".mp3", size);

    EXPECT_THAT(pathsOf(media(allMedia)),
                ElementsAre("/disk/3.mp3", "/disk/5.mp3", "/disk/1.mp3", "/disk/4.mp3", "/disk/2.mp3"));
    EXPECT_THAT(pathsOf(media(allMedia, 2)), ElementsAre("/disk/1.mp3", "/disk/2.mp3"));
    EXPECT_THAT(media(allMedia, 0), IsEmpty());
    EXPECT_THAT(media(allMedia, -1), IsEmpty());
}
