#pragma once

#include "FileSystem.h"

#include <array>

/// A disk that holds one bundle, whose files hold what they are given. In its Resources every name leads to an icon, and
/// each of as many translations as are wanted to the same file.
class FuzzedBundle : public FileSystem
{
public:
    enum File { information, translationTable, translation, executable, icon };
    static constexpr size_t fileCount = 5;

    FuzzedBundle() = default;
    /// What `part` and `listing` have written, one behind the other. Whatever else it is makes a bundle, too.
    explicit FuzzedBundle(QByteArrayView description);

    static QByteArray part(File file, const QByteArray &content);
    /// That so many entries, at most 16,777,215, are listed in the Resources; half of them are translations.
    static QByteArray listing(quint32 entries);

    void setContent(File file, const QByteArray &content) { m_contents[file] = content; }
    static Url url() { return Url("/Applications/Fuzzed.app"); }
    /// Bytes that have been read so far, and entries that have been listed.
    qint64 bytesRead() const { return m_bytesRead; }
    qint64 entriesListed() const { return m_entriesListed; }

    Url homeDirectory() const override { return Url("/"); }
    bool exists(const Url &) const override { return true; }
    bool isGone(const Url &) const override { return false; }
    bool isDirectory(const Url &) const override { return true; }
    std::optional<Url> resolved(const Url &url) const override { return url; }
    bool isExecutable(const Url &) const override { return false; }
    DirectoryEnumeration contentsOfDirectory(const Url &folder) const override;
    void walk(const QList<Url> &, const FolderVisitor &, const FolderChoice &) const override { }
    std::optional<ResourceValues> resourceValues(const Url &) const override { return std::nullopt; }
    std::optional<QByteArray> readFile(const Url &url, qint64 maximumSize) const override;
    std::optional<QByteArray> readFilePart(const Url &url, qint64 offset, qint64 maximumLength) const override;
    std::optional<VolumeValues> volumeValues(const Url &) const override { return std::nullopt; }

private:
    class Listing;

    const QByteArray &contentOf(const Url &url) const;

    std::array<QByteArray, fileCount> m_contents;
    quint32 m_entries = 0;
    mutable qint64 m_bytesRead = 0;
    mutable qint64 m_entriesListed = 0;
};
