#include "DiskCodeSignature.h"

#include "BundleBudget.h"
#include "BundleLayout.h"
#include "Entitlements.h"
#include "FileNames.h"
#include "FileSystem.h"
#include "PropertyList.h"

namespace {

/// The name of the bundle's executable: what its information says, else the bundle's own. Absent when no file of the
/// folder for executables can have it.
std::optional<QByteArray> executableName(const QVariantMap &information, const Url &bundle)
{
    const auto value = information.value(QStringLiteral("CFBundleExecutable"));
    const auto name = value.typeId() == QMetaType::QString ? value.toString().toUtf8() : QByteArray();
    if (name.isEmpty())
        return bundle.nameWithoutExtension();
    return isFileName(name) ? std::optional(name) : std::nullopt;
}

/// Whether `executable` lies in `bundle` once links are followed. One that lies elsewhere would lend the bundle another
/// program's entitlements.
bool isInside(const FileSystem &fileSystem, const Url &executable, const Url &bundle)
{
    const auto file = fileSystem.resolved(executable);
    const auto folder = fileSystem.resolved(bundle);
    return file && folder && file->path().startsWith(folder->path() + '/');
}

} // namespace

std::optional<QVariantMap> DiskCodeSignature::entitlements(const Url &bundle) const
{
    BundleBudget budget(m_stop);
    const auto layout = bundleLayout(m_fileSystem, bundle);
    const auto information = readPropertyListFile(m_fileSystem, layout.information, budget);
    const auto name = executableName(information.value_or(QVariantMap()), bundle);
    if (!name)
        return std::nullopt;
    const auto executable = layout.executables / QByteArrayView(*name);
    if (!isInside(m_fileSystem, executable, bundle))
        return std::nullopt;
    const auto readPart = [&](qint64 offset, qint64 length) {
        return budget.readFilePart(m_fileSystem, executable, offset, length).value_or(QByteArray());
    };
    return readEntitlements(readPart, budget);
}
