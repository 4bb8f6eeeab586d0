#include "ListModelBase.h"

#include "ByteCount.h"

QString ListModelBase::totalSizeText() const
{
    return formattedByteCount(m_totalBytes, ByteCountStyle::file);
}

QString ListModelBase::selectedSizeText() const
{
    return formattedByteCount(m_selectedBytes, ByteCountStyle::file);
}

QHash<int, QByteArray> ListModelBase::roleNames() const
{
    return {{nameRole, "name"},
            {pathRole, "path"},
            {uriRole, "uri"},
            {sizeTextRole, "sizeText"},
            {symbolRole, "symbol"},
            {tintRole, "tint"},
            {isSelectedRole, "isSelected"},
            {isSystemApplicationRole, "isSystemApplication"}};
}

bool ListModelBase::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != isSelectedRole)
        return false;
    setSelected(index.row(), value.toBool());
    return true;
}

void ListModelBase::setSelected(int row, bool isSelected)
{
    if (row < 0 || row >= count() || !storeSelected(row, isSelected))
        return;
    const auto bytes = weight(row).bytes;
    m_selectedCount += isSelected ? 1 : -1;
    m_selectedBytes += isSelected ? bytes : -bytes;
    Q_EMIT dataChanged(index(row), index(row), {isSelectedRole});
    Q_EMIT changed();
}

void ListModelBase::recount()
{
    m_totalBytes = 0;
    m_selectedBytes = 0;
    m_selectedCount = 0;
    for (qsizetype row = 0; row < count(); ++row) {
        const auto [bytes, isSelected] = weight(row);
        m_totalBytes += bytes;
        if (isSelected) {
            m_selectedBytes += bytes;
            ++m_selectedCount;
        }
    }
}
