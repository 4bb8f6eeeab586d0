#include "ApplicationReader.h"

#include "AllocatedSize.h"
#include "BundleReader.h"
#include "Spelling.h"

namespace {

QString displayName(const Bundle &bundle, const Url &url)
{
    if (const auto name = bundle.text(QStringLiteral("CFBundleDisplayName")))
        return *name;
    if (const auto name = bundle.text(QStringLiteral("CFBundleName")))
        return *name;
    return decodedText(url.nameWithoutExtension());
}

} // namespace

ApplicationReader::ApplicationReader(const FileSystem &fileSystem, const BundleReader &bundleReader)
    : m_fileSystem(fileSystem), m_bundleReader(bundleReader)
{
}

std::optional<InstalledApplication> ApplicationReader::applicationAt(const Url &url,
                                                                     bool isSystemApplication) const
{
    auto application = unmeasuredApplicationAt(url, isSystemApplication);
    if (application)
        application->sizeBytes = allocatedSize(m_fileSystem, url);
    return application;
}

std::optional<InstalledApplication> ApplicationReader::unmeasuredApplicationAt(const Url &url,
                                                                               bool isSystemApplication) const
{
    if (url.pathExtension().compare("app", Qt::CaseInsensitive) != 0)
        return std::nullopt;
    const auto bundle = m_bundleReader.open(url);
    const auto identifier = bundle ? bundle->identifier() : std::nullopt;
    if (!identifier || identifier->isEmpty())
        return std::nullopt;
    return InstalledApplication{displayName(*bundle, url), *identifier, url, /*sizeBytes*/ 0, isSystemApplication};
}
