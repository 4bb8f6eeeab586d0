#pragma once

#include "BundleBudget.h"

#include <QByteArrayView>
#include <QHash>
#include <QVariant>

#include <optional>

/// Reads one property list in its binary form: objects, a table of their offsets, and a trailer that describes the
/// table. Values as `readPropertyList` describes them; a set is read as a list, a keyed archive's reference as a
/// dictionary of "CF$UID", and a null as an invalid QVariant.
///
/// Every number in it is a claim of the file's. Objects may name each other in circles (the depth ends those), be
/// named a million times (the count of values ends that) or share their bytes (see `m_unclaimedBytes`).
class BinaryPropertyListReader
{
public:
    /// `data` and `budget` outlive the reader.
    BinaryPropertyListReader(QByteArrayView data, BundleBudget &budget) : m_data(data), m_budget(budget) { }

    /// To be called once.
    std::optional<QVariant> read();

private:
    std::optional<QVariant> object(quint64 index, int depth);
    std::optional<QVariant> list(QByteArrayView references, int depth);
    std::optional<QVariant> dictionary(QByteArrayView references, int depth);
    std::optional<QVariant> leaf(quint64 index, int type, QByteArrayView content);

    quint64 reference(QByteArrayView references, qsizetype position) const;

    QByteArrayView m_data;
    qsizetype m_offsetSize = 0;
    qsizetype m_referenceSize = 0;
    qsizetype m_offsetTable = 0;
    quint64 m_objectCount = 0;
    BundleBudget &m_budget;
    /// Texts and bytes that were read, by object. They are named often, and are shared then.
    QHash<quint64, QVariant> m_leaves;
    /// The texts and bytes of an honest file lie side by side, so together they are never longer than it.
    qsizetype m_unclaimedBytes = 0;
};
