#pragma once

#include "ListModelBase.h"
#include "RowData.h"

#include <QList>

#include <algorithm>
#include <utility>

/// A published list of the state object. Rows are kept as the values that the scanners return; what a view shows
/// of a row is made when it asks.
template <typename Row> class ListModel : public ListModelBase
{
public:
    using ListModelBase::ListModelBase;

    const QList<Row> &rows() const { return m_rows; }

    /// Puts `rows` in the place of all that there was, in one reset.
    void replace(QList<Row> rows)
    {
        beginResetModel();
        m_rows = std::move(rows);
        recount();
        endResetModel();
        Q_EMIT changed();
    }

    /// Does nothing to a list that is empty.
    void clear()
    {
        if (!m_rows.isEmpty())
            replace({});
    }

    /// Takes every row out for which `isGone` holds. The others keep their order, and views keep their place.
    template <typename Predicate> void removeIf(Predicate isGone)
    {
        if (std::ranges::none_of(m_rows, isGone))
            return;
        // A view pays for every gap; beyond a screenful of them one reset is the cheaper way.
        constexpr auto mostGaps = 64;
        if (gaps(isGone) > mostGaps) {
            auto remaining = m_rows;
            remaining.removeIf(isGone);
            return replace(std::move(remaining));
        }
        for (auto end = m_rows.size(); end > 0;) {
            if (!isGone(m_rows.at(end - 1))) {
                --end;
                continue;
            }
            auto begin = end - 1;
            while (begin > 0 && isGone(m_rows.at(begin - 1)))
                --begin;
            beginRemoveRows({}, static_cast<int>(begin), static_cast<int>(end - 1));
            m_rows.remove(begin, end - begin);
            endRemoveRows();
            end = begin;
        }
        recount();
        Q_EMIT changed();
    }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        return index.isValid() ? rowData(m_rows.at(index.row()), role) : QVariant();
    }

protected:
    bool storeSelected(qsizetype row, bool isSelected) override
    {
        if constexpr (isSelectable)
            return std::exchange(m_rows[row].isSelected, isSelected) != isSelected;
        else
            return false;
    }

    Weight weight(qsizetype row) const override
    {
        if constexpr (isSelectable)
            return {m_rows.at(row).sizeBytes, m_rows.at(row).isSelected};
        else
            return {m_rows.at(row).sizeBytes, false};
    }

private:
    static constexpr bool isSelectable = requires(Row row) { row.isSelected; };

    template <typename Predicate> qsizetype gaps(Predicate isGone) const
    {
        qsizetype count = 0;
        for (qsizetype row = 0; row < m_rows.size(); ++row) {
            if (isGone(m_rows.at(row)) && (row == 0 || !isGone(m_rows.at(row - 1))))
                ++count;
        }
        return count;
    }

    QList<Row> m_rows;
};
