#pragma once

#include "Url.h"

#include <QCache>
#include <QDeadlineTimer>
#include <QMutex>
#include <QQuickAsyncImageProvider>
#include <QThreadPool>

#include <optional>
#include <utility>

class BundleReader;
class FileSystem;

/// Gives the pictures of application bundles to the window: "image://bundles/URI", where URI is the
/// percent-encoded file URI of the bundle, percent-encoded once more so that no byte of it is touched on the way.
///
/// Pictures are read and decoded on threads of their own at the size asked for, and kept for as long as the
/// bundle's modification time stays the same. Every bundle has one: the letter on a tile where it has no picture.
class BundleIconProvider : public QQuickAsyncImageProvider
{
public:
    /// Both outlive the provider.
    BundleIconProvider(const BundleReader &bundleReader, const FileSystem &fileSystem);
    ~BundleIconProvider() override;

    /// Drops what has not begun and blocks until nothing runs any more, or until the deadline: false then.
    bool waitForIcons(QDeadlineTimer deadline);

    /// Called by the engine, on a thread of its own.
    QQuickImageResponse *requestImageResponse(const QString &id, const QSize &requestedSize) override;

    /// The picture of `bundle` in a square of `side` pixels. Blocks; safe to call from any thread.
    QImage icon(const Url &bundle, int side);

private:
    using Key = std::pair<QByteArray, int>;
    struct Entry
    {
        QImage image;
        std::optional<qint64> modificationTime;
    };

    std::optional<QImage> kept(const Key &key, std::optional<qint64> modificationTime);

    const BundleReader &m_bundleReader;
    const FileSystem &m_fileSystem;
    QMutex m_mutex;
    /// Costs are bytes.
    QCache<Key, Entry> m_icons;
    QThreadPool m_threads;
};
