#include "ListModelBase.h"

#include "ByteCount.h"
#include "Spelling.h"

#include <algorithm>

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
            {isSystemApplicationRole, "isSystemApplication"},
            {matchKeyRole, "matchKey"},
            {kindKeyRole, "kindKey"}};
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

void ListModelBase::toggleAll()
{
    const bool isSelected = m_selectedCount < count();
    bool hasChanged = false;
    for (qsizetype row = 0; row < count(); ++row)
        hasChanged = storeSelected(row, isSelected) || hasChanged;
    if (!hasChanged)
        return;
    recount();
    Q_EMIT dataChanged(index(0), index(count() - 1), {isSelectedRole});
    Q_EMIT changed();
}

int ListModelBase::rowBeginningWith(const QString &text, int from) const
{
    const auto beginning = caselessForm(text);
    for (int i = 0; i < count(); ++i) {
        const auto row = (std::max(from, 0) + i) % count();
        if (caselessForm(data(index(row), nameRole).toString()).startsWith(beginning))
            return row;
    }
    return -1;
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
