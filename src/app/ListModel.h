#pragma once

#include "ListModelBase.h"
#include "RowData.h"

#include <QList>

#include <ranges>
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
        ++m_revision;
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

    /// Counts how often rows came or went. While it stays the same, so does every row's place.
    quint64 revision() const { return m_revision; }

    /// Takes out the rows at these places, which are in ascending order. The others keep their order, and views keep
    /// their place.
    void remove(const QList<int> &places)
    {
        if (places.isEmpty())
            return;
        // A view pays for every gap; beyond a screenful of them one reset is the cheaper way.
        constexpr auto mostGaps = 64;
        const auto gaps = gapsOf(places);
        if (gaps.size() > mostGaps)
            return replace(without(places));
        for (const auto &[first, last] : gaps | std::views::reverse) {
            beginRemoveRows({}, first, last);
            m_rows.remove(first, last - first + 1);
            endRemoveRows();
        }
        ++m_revision;
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

    struct Gap
    {
        int first;
        int last;
    };

    static QList<Gap> gapsOf(const QList<int> &places)
    {
        QList<Gap> gaps;
        for (const auto place : places) {
            if (!gaps.isEmpty() && gaps.last().last + 1 == place)
                gaps.last().last = place;
            else
                gaps.append({place, place});
        }
        return gaps;
    }

    QList<Row> without(const QList<int> &places) const
    {
        QList<Row> remaining;
        remaining.reserve(m_rows.size() - places.size());
        auto gone = places.begin();
        for (int place = 0; place < count(); ++place) {
            if (gone != places.end() && *gone == place)
                ++gone;
            else
                remaining.append(m_rows.at(place));
        }
        return remaining;
    }

    quint64 m_revision = 0;
    QList<Row> m_rows;
};
