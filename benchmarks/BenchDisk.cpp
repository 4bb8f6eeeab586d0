#include "BenchDisk.h"

#include "IconPainter.h"
#include "SideBySide.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;

constexpr const char *extensions[] = {"jpg", "txt", "pdf", "docx", "odt", "plist", "db", "json", "js", "dat"};

void makeFile(const fs::path &path, off_t size)
{
    const int file = open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
    if (file < 0 || (size > 0 && posix_fallocate(file, 0, size) != 0))
        qFatal("%s cannot be made", path.c_str());
    close(file);
}

void writeInformation(const fs::path &contents, int number, const std::string &name)
{
    std::ofstream(contents / "Info.plist")
        << R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>CFBundleIdentifier</key>)"
        << "<string>com.example.tool" << number << "</string><key>CFBundleName</key><string>" << name
        << "</string><key>CFBundleExecutable</key><string>main</string><key>CFBundleIconFile</key>"
        << "<string>icon</string></dict></plist>";
}

} // namespace

BenchDisk::BenchDisk(const QByteArray &folder)
    : m_tree(folder + "/tree"), m_applications(folder + "/applications"), m_crowd(folder + "/crowd"),
      m_gallery(folder + "/gallery"), m_bundles(folder + "/bundles"), m_multitude(folder + "/multitude")
{
}

void BenchDisk::make() const
{
    bool isNew = false;
    // A name is given when all is there, so that what was broken off is made anew.
    for (const auto &[root, make] :
         {std::pair(&m_tree, &BenchDisk::makeTree), std::pair(&m_applications, &BenchDisk::makeApplications),
          std::pair(&m_crowd, &BenchDisk::makeCrowd), std::pair(&m_gallery, &BenchDisk::makeGallery),
          std::pair(&m_bundles, &BenchDisk::makeBundles),
          std::pair(&m_multitude, &BenchDisk::makeMultitude)}) {
        const fs::path done = root->prefix().toStdString() + ".done";
        if (fs::exists(done))
            continue;
        fs::remove_all(root->prefix().toStdString());
        (this->*make)();
        makeFile(done, 0);
        isNew = true;
    }
    // What has just been made is still being written, and lies in memory otherwise than what was read from a disk.
    if (isNew)
        dropCaches();
}

void BenchDisk::makeTree() const
{
    for (int folder = 0; folder < 50 * 10 * 10; ++folder) {
        const auto path = fs::path(treePath().toStdString()) / ("com.example.tool" + std::to_string(folder / 100))
                          / ("part " + std::to_string(folder / 10 % 10)) / std::to_string(folder % 10);
        fs::create_directories(path);
        for (int file = 0; file < 30; ++file)
            makeFile(path / ("item " + std::to_string(file) + '.' + extensions[file % 10]),
                     file % 10 == 5 ? 4096 : 0);
    }
}

void BenchDisk::makeApplications() const
{
    for (int i = 0; i < itemCount; ++i) {
        const auto name = "Tool " + std::to_string(i);
        const fs::path contents =
            m_applications.hostPath(Url("/Applications")).toStdString() + '/' + name + ".app/Contents";
        fs::create_directories(contents / "MacOS");
        fs::create_directories(contents / "Resources");
        makeFile(contents / "MacOS/main", 4096);
        for (int file = 0; file < 10; ++file)
            makeFile(contents / "Resources" / (std::to_string(file) + ".png"), 4096);
        writeInformation(contents, i, name);
    }
}

void BenchDisk::makeCrowd() const
{
    const fs::path caches = m_crowd.hostPath(BenchDisk::caches()).toStdString();
    fs::create_directories(caches);
    for (int file = 0; file < crowdCount; ++file)
        makeFile(caches / ("entry " + std::to_string(file) + ".jpg"), 0);
}

void BenchDisk::makeGallery() const
{
    for (int i = 0; i < galleryCount; ++i) {
        const auto letter = static_cast<char>('A' + i % 26);
        const auto name = letter + std::string("rtist ") + std::to_string(i);
        const fs::path contents =
            m_gallery.hostPath(Url("/Applications")).toStdString() + '/' + name + ".app/Contents";
        fs::create_directories(contents / "Resources");
        writeInformation(contents, i, name);
        const auto color = QColor::fromHsv(i * 7 % 360, 160, 220);
        const auto icon = paintedIcns(color, QString(QLatin1Char(letter)));
        std::ofstream(contents / "Resources/icon.icns", std::ios::binary).write(icon.data(), icon.size());
    }
}

void BenchDisk::makeBundles() const
{
    for (int i = 0; i < itemCount; ++i) {
        const auto name = "Tool " + std::to_string(i);
        const fs::path contents =
            m_bundles.hostPath(Url("/Applications")).toStdString() + '/' + name + ".app/Contents";
        for (int file = 0; file < filesOfABundle; ++file) {
            const auto folder = contents / "Resources" / std::to_string(file / 30);
            if (file % 30 == 0)
                fs::create_directories(folder);
            makeFile(folder / (std::to_string(file) + ".js"), 0);
        }
        writeInformation(contents, i, name);
    }
}

// Made of hard links, which are made faster than files and walked through like them.
void BenchDisk::makeMultitude() const
{
    constexpr int multitudeCount = 2'000'000;
    constexpr int filesOfAFolder = 30;
    // ext4 allows 65,000.
    constexpr int mostNames = 30'000;
    const fs::path caches = m_multitude.hostPath(BenchDisk::caches()).toStdString();
    fs::path folder, content;
    for (int file = 0; file < multitudeCount; ++file) {
        if (file % filesOfAFolder == 0) {
            const auto number = file / filesOfAFolder;
            folder = caches / std::to_string(number / 1000) / std::to_string(number);
            fs::create_directories(folder);
        }
        const auto path = folder / ("item " + std::to_string(file % filesOfAFolder) + '.' + extensions[file % 10]);
        if (file % mostNames == 0) {
            makeFile(path, 4096);
            content = path;
        } else {
            fs::create_hard_link(content, path);
        }
    }
}

void BenchDisk::restoreLargeCaches() const
{
    const fs::path library = m_applications.hostPath(home() / "Library").toStdString();
    fs::remove_all(m_applications.hostPath(home() / ".local").toStdString());
    fs::create_directories(library / "Caches");
    for (int i = 0; i < itemCount; ++i)
        makeFile(library / "Caches" / ("org.example.cache" + std::to_string(i)), 1024 * 1024 + 4096);
}
