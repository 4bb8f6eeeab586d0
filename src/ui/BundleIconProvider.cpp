#include "BundleIconProvider.h"

#include "BundleIcon.h"
#include "BundleReader.h"
#include "FileSystem.h"

#include <QFutureWatcher>
#include <QtConcurrentRun>

#include <algorithm>

namespace {

constexpr auto mostBytesKept = 32 * 1024 * 1024;
constexpr auto mostThreads = 2;
constexpr auto largestSide = 1024;

/// A picture on its way. A request that nobody waits for any more is dropped before its turn comes.
class IconResponse : public QQuickImageResponse
{
public:
    explicit IconResponse(const QFuture<QImage> &icon)
    {
        connect(&m_icon, &QFutureWatcher<QImage>::finished, this, &IconResponse::finished);
        m_icon.setFuture(icon);
    }

    QQuickTextureFactory *textureFactory() const override
    {
        const auto icon = m_icon.future();
        return QQuickTextureFactory::textureFactoryForImage(icon.isResultReadyAt(0) ? icon.result() : QImage());
    }

    void cancel() override { m_icon.cancel(); }

private:
    QFutureWatcher<QImage> m_icon;
};

} // namespace

BundleIconProvider::BundleIconProvider(const BundleReader &bundleReader, const FileSystem &fileSystem)
    : m_bundleReader(bundleReader), m_fileSystem(fileSystem), m_icons(mostBytesKept)
{
    m_threads.setMaxThreadCount(mostThreads);
}

BundleIconProvider::~BundleIconProvider()
{
    waitForIcons(QDeadlineTimer::Forever);
}

bool BundleIconProvider::waitForIcons(QDeadlineTimer deadline)
{
    m_threads.clear();
    return m_threads.waitForDone(static_cast<int>(deadline.remainingTime()));
}

QQuickImageResponse *BundleIconProvider::requestImageResponse(const QString &id, const QSize &requestedSize)
{
    const auto bundle = Url::fromUri(QByteArray::fromPercentEncoding(id.toUtf8())).value_or(Url());
    const auto side = std::clamp(std::max(requestedSize.width(), requestedSize.height()), 1, largestSide);
    return new IconResponse(QtConcurrent::run(&m_threads, [this, bundle, side] { return icon(bundle, side); }));
}

QImage BundleIconProvider::icon(const Url &bundle, int side)
{
    const auto values = m_fileSystem.resourceValues(bundle);
    const auto modificationTime = values ? values->modificationTime : std::nullopt;
    const Key key(bundle.path(), side);
    if (const auto image = kept(key, modificationTime))
        return *image;

    auto image = BundleIcon::decoded(m_bundleReader.iconData(bundle), side);
    if (image.isNull())
        image = BundleIcon::drawn(QString::fromUtf8(bundle.nameWithoutExtension()), side);
    const QMutexLocker lock(&m_mutex);
    m_icons.insert(key, new Entry{image, modificationTime}, image.sizeInBytes());
    return image;
}

std::optional<QImage> BundleIconProvider::kept(const Key &key, std::optional<qint64> modificationTime)
{
    const QMutexLocker lock(&m_mutex);
    const auto *entry = m_icons.object(key);
    if (!entry || entry->modificationTime != modificationTime)
        return std::nullopt;
    return entry->image;
}
