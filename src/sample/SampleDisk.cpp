#include "SampleDisk.h"

#include "DiskBuilder.h"
#include "IconPainter.h"
#include "SampleContents.h"
#include "SignedProgram.h"

#include <QDir>
#include <QFile>

#include <utility>

namespace {

// Tells a sample disk from anybody's folder: what does not have it is never replaced.
constexpr QLatin1String marker("/.tarnvale-sample-disk");

QByteArray informationDictionary(const SampleApplication &application)
{
    QByteArray plist("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n");
    const auto add = [&](QLatin1String key, const QString &value) {
        plist += QStringLiteral("  <key>%1</key><string>%2</string>\n").arg(key, value.toHtmlEscaped()).toUtf8();
    };
    add(QLatin1String("CFBundleIdentifier"), QString::fromUtf16(application.identifier));
    add(QLatin1String("CFBundleDisplayName"), QString::fromUtf16(application.name));
    add(QLatin1String("CFBundleExecutable"), QStringLiteral("Main"));
    add(QLatin1String("CFBundlePackageType"), QStringLiteral("APPL"));
    if (*application.letter)
        add(QLatin1String("CFBundleIconFile"), QStringLiteral("AppIcon"));
    return plist + "</dict>\n</plist>\n";
}

/// The program that the information dictionary names: signed where the application has a group.
QByteArray program(const SampleApplication &application)
{
    SignedProgram program;
    if (*application.group) {
        const QVariantList groups{QString::fromUtf16(application.group)};
        program.xmlEntitlements = QVariantMap{{QStringLiteral("com.apple.security.application-groups"), groups}};
    }
    return program.file();
}

void buildApplication(DiskBuilder &disk, const SampleApplication &application)
{
    const auto contents = QString::fromUtf16(application.path) + QStringLiteral("/Contents");
    disk.writeFile(contents + QStringLiteral("/Info.plist"), informationDictionary(application));
    disk.writeFile(contents + QStringLiteral("/MacOS/Main"), program(application));
    disk.allocateFile(contents + QStringLiteral("/MacOS/libMain.dylib"), application.size / 4);
    disk.allocateFile(contents + QStringLiteral("/Frameworks/Core.framework/Core"), application.size / 2);
    disk.allocateFile(contents + QStringLiteral("/Resources/Assets.car"), application.size / 4);
    if (*application.letter) {
        const auto icon =
            paintedIcns(QColor(QLatin1String(application.color)), QString::fromUtf16(application.letter));
        disk.writeFile(contents + QStringLiteral("/Resources/AppIcon.icns"), icon);
    }
}

} // namespace

SampleDisk::SampleDisk(QString folder) : m_folder(std::move(folder)) { }

Url SampleDisk::home() const
{
    return Url(SampleContents::home.toUtf8());
}

QString SampleDisk::homePath() const
{
    return m_folder + SampleContents::home;
}

QString SampleDisk::build() const
{
    QDir folder(m_folder);
    if (folder.exists() && !folder.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
        if (!QFile::exists(m_folder + marker))
            return QStringLiteral("%1 is not a sample disk and is left as it is. Name another folder.")
                .arg(m_folder);
        if (!folder.removeRecursively())
            return QStringLiteral("The sample disk of an earlier run could not be removed from %1.").arg(m_folder);
    }

    DiskBuilder disk(m_folder, SampleContents::home);
    disk.writeFile(marker, {});
    for (const auto &application : SampleContents::applications())
        buildApplication(disk, application);
    for (const auto &[path, size] : SampleContents::files())
        disk.allocateFile(QString::fromUtf16(path), size);
    for (const auto &[path, target] : SampleContents::links())
        disk.makeLink(QString::fromUtf16(path), QString::fromUtf16(target));
    for (const auto &[path, content] : SampleContents::facts())
        disk.writeFile(QStringLiteral("/.computer") + QString::fromUtf16(path), content);
    disk.makeFolder(QStringLiteral("~/.local/share"));
    return disk.error();
}
