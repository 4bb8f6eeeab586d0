#pragma once

#include "FakeBundleReader.h"
#include "FakeCodeSignature.h"
#include "InMemoryFileSystem.h"
#include "InstalledApplication.h"

#include <QByteArrayList>

/// Where the found things are, in their order, the home folder being "~".
QByteArrayList pathsOf(const auto &found)
{
    QByteArrayList paths;
    for (const auto &item : found)
        paths.append(QByteArray(item.url.path()).replace(InMemoryFileSystem().homeDirectory().path(), "~"));
    return paths;
}

/// What a test says of an application that it installs.
struct ApplicationTraits
{
    QString identifier;
    /// Its display name; without one it goes by its file name.
    std::optional<QString> name = std::nullopt;
    /// Bytes of its executable.
    qint64 size = 4096;
    QStringList groups = {};
};

/// A Mac-shaped disk in memory together with the services that read its bundles.
class TestDisk : public InMemoryFileSystem
{
public:
    FakeBundleReader bundles;
    FakeCodeSignature signatures;

    /// The information of a bundle that has this identifier, as a bundle really keeps it. `path` ends in "Info.plist".
    Url information(const QByteArray &path, const QByteArray &identifier)
    {
        return fileWithContent(path, "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>"
                                         + identifier + "</string></dict></plist>");
    }

    /// Installs an application bundle and answers it as the catalog would list it.
    InstalledApplication application(const QByteArray &path, const ApplicationTraits &traits)
    {
        const auto bundle = folder(path);
        file(path + "/Contents/MacOS/main", traits.size);
        QVariantMap information{{"CFBundleIdentifier", traits.identifier}};
        if (traits.name)
            information.insert("CFBundleDisplayName", *traits.name);
        bundles.add(bundle, information);
        if (!traits.groups.isEmpty())
            signatures.add(bundle, {{"com.apple.security.application-groups", traits.groups}});
        return {traits.name.value_or(QString::fromUtf8(bundle.nameWithoutExtension())), traits.identifier, bundle,
                traits.size, path.startsWith("/System/")};
    }
};
