#pragma once

#include "DiskRoot.h"

/// Six disks in a folder.
///
/// The first one's user has 150,000 files in 50 caches: per cache 10 × 10 folders of 30 files, a tenth of them
/// media, four tenths documents. The second one has 200 applications of 12 files and, made anew each time, 200
/// large caches. The third one's user has a million empty files in one folder. The fourth one has 500 applications,
/// each with an icon of its own. The fifth one has 200 applications of 3,000 files. The sixth one's user has 2,000,000
/// files of few contents in folders of 30.
class BenchDisk
{
public:
    static constexpr int fileCount = 150'000;
    static constexpr int itemCount = 200;
    static constexpr int crowdCount = 1'000'000;
    static constexpr int galleryCount = 500;
    static constexpr int filesOfABundle = 3000;

    explicit BenchDisk(const QByteArray &folder);

    /// Makes what is not there yet. Needs a QGuiApplication.
    void make() const;

    /// The disk with the large applications.
    const DiskRoot &bundles() const { return m_bundles; }
    const DiskRoot &tree() const { return m_tree; }
    const DiskRoot &applications() const { return m_applications; }
    const DiskRoot &crowd() const { return m_crowd; }
    const DiskRoot &gallery() const { return m_gallery; }
    const DiskRoot &multitude() const { return m_multitude; }
    static Url home() { return Url("/Users/me"); }
    static Url caches() { return Url("/Users/me/Library/Caches"); }
    /// The host path of the caches with the 150,000 files.
    QByteArray treePath() const { return m_tree.hostPath(caches()); }

    /// Puts the large caches in place again and empties the second disk's Trash.
    void restoreLargeCaches() const;

private:
    void makeTree() const;
    void makeApplications() const;
    void makeCrowd() const;
    void makeGallery() const;
    void makeBundles() const;
    void makeMultitude() const;

    DiskRoot m_tree;
    DiskRoot m_applications;
    DiskRoot m_crowd;
    DiskRoot m_gallery;
    DiskRoot m_bundles;
    DiskRoot m_multitude;
};
