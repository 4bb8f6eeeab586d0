#include "RowData.h"

#include "ByteCount.h"
#include "ListModelBase.h"
#include "Symbols.h"

namespace {

/// What every row has.
QVariant fileData(const Url &url, qint64 sizeBytes, int role)
{
    switch (role) {
    case ListModelBase::nameRole:
        return url.displayName();
    case ListModelBase::pathRole:
        return url.displayPath();
    case ListModelBase::uriRole:
        return QString::fromLatin1(url.toUri());
    case ListModelBase::sizeTextRole:
        return formattedByteCount(sizeBytes, ByteCountStyle::file);
    default:
        return {};
    }
}

QVariant tileData(const SymbolTile &tile, int role)
{
    return (role == ListModelBase::symbolRole ? tile.symbol : tile.tint).toString();
}

bool isTileRole(int role)
{
    return role == ListModelBase::symbolRole || role == ListModelBase::tintRole;
}

} // namespace

QVariant rowData(const InstalledApplication &application, int role)
{
    switch (role) {
    case ListModelBase::nameRole:
        return application.name;
    case ListModelBase::isSystemApplicationRole:
        return application.isSystemApplication;
    default:
        return fileData(application.url, application.sizeBytes, role);
    }
}

QVariant rowData(const ScanItem &item, int role)
{
    if (role == ListModelBase::isSelectedRole)
        return item.isSelected;
    if (role == ListModelBase::matchKeyRole)
        return rawValue(item.confidence) + QStringLiteral("_match");
    if (role == ListModelBase::kindKeyRole)
        return rawValue(item.kind);
    return isTileRole(role) ? tileData(symbolTile(item.kind), role) : fileData(item.url, item.sizeBytes, role);
}

QVariant rowData(const MediaFile &file, int role)
{
    if (role == ListModelBase::kindKeyRole)
        return QStringLiteral("media_") + rawValue(file.category);
    return isTileRole(role) ? tileData(symbolTile(file.category), role) : fileData(file.url, file.sizeBytes, role);
}

QVariant rowData(const TextFile &file, int role)
{
    if (role == ListModelBase::kindKeyRole)
        return QStringLiteral("text_") + rawValue(file.category);
    return isTileRole(role) ? tileData(symbolTile(file.category), role) : fileData(file.url, file.sizeBytes, role);
}
