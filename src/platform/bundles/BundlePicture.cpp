#include "BundlePicture.h"

#include "BundleBudget.h"
#include "BundleLayout.h"
#include "FileNames.h"
#include "FileSystem.h"
#include "IconFamily.h"
#include "PropertyList.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr qint64 largestIcon = 16 * 1024 * 1024;

/// `value` where it is a text, and the texts in it where it is a list.
QStringList texts(const QVariant &value)
{
    if (value.typeId() == QMetaType::QString)
        return {value.toString()};
    QStringList texts;
    for (const auto &element : value.toList()) {
        if (element.typeId() == QMetaType::QString)
            texts.append(element.toString());
    }
    return texts;
}

/// The names under which a bundle may keep its icon, best first. They may lack an extension.
QStringList iconNames(const QVariantMap &information)
{
    const auto primaryIcon = [&](const QString &key) {
        return information.value(key).toMap().value(QStringLiteral("CFBundlePrimaryIcon")).toMap();
    };
    QStringList names =
        texts(information.value(QStringLiteral("CFBundleIconFile")))
        + texts(information.value(QStringLiteral("CFBundleIconFiles")))
        + texts(primaryIcon(QStringLiteral("CFBundleIcons")).value(QStringLiteral("CFBundleIconFiles")))
        + texts(primaryIcon(QStringLiteral("CFBundleIcons~ipad")).value(QStringLiteral("CFBundleIconFiles")))
        + texts(information.value(QStringLiteral("CFBundleIconName"))) + QStringList(QStringLiteral("AppIcon"));
    constexpr qsizetype longestName = 255;
    names.removeIf([](const QString &name) { return name.size() > longestName || !isFileName(name.toUtf8()); });
    names.removeDuplicates();
    constexpr qsizetype most = 50;
    return names.first(std::min(names.size(), most));
}

QByteArray pictureAt(const FileSystem &fileSystem, const Url &url, BundleBudget &budget)
{
    const auto content = budget.readFile(fileSystem, url, largestIcon);
    if (!content)
        return {};
    return iconWidth(*content) > 0 ? *content : bestPicture(*content);
}

/// The widest of the pictures in `folder` whose names go on behind one of `names`, as "AppIcon60x60@2x.png" does.
QByteArray widestVariant(const FileSystem &fileSystem, const Url &folder, const QStringList &names,
                         BundleBudget &budget)
{
    constexpr int most = 200;
    int seen = 0;
    int widest = 0;
    Url best;
    for (const auto &entry : fileSystem.contentsOfDirectory(folder)) {
        if (!budget.spendEntry())
            break;
        if (extensionOf(entry.name()) != "png")
            continue;
        const auto name = QString::fromUtf8(entry.name());
        if (std::ranges::none_of(names, [&](const QString &start) { return name.startsWith(start); }))
            continue;
        const auto url = entry.url();
        const int width = iconWidth(budget.readFilePart(fileSystem, url, 0, 24).value_or(QByteArray()));
        if (width > widest) {
            widest = width;
            best = url;
        }
        if (++seen == most)
            break;
    }
    return widest > 0 ? pictureAt(fileSystem, best, budget) : QByteArray();
}

} // namespace

QByteArray bundlePicture(const FileSystem &fileSystem, const Url &bundle, BundleBudget &budget)
{
    const auto layout = bundleLayout(fileSystem, bundle);
    const auto information = readPropertyListFile(fileSystem, layout.information, budget);
    const auto names = iconNames(information.value_or(QVariantMap()));
    for (const auto &name : names) {
        for (const auto *extension : {"", ".icns", ".png"}) {
            auto picture =
                pictureAt(fileSystem, layout.resources / QByteArrayView(name.toUtf8() + extension), budget);
            if (!picture.isEmpty())
                return picture;
        }
    }
    return widestVariant(fileSystem, layout.resources, names, budget);
}
