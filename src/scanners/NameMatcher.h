#pragma once

#include <QByteArrayView>
#include <QString>

/// Tells whether names equal one name, whatever their case and whether an accent is composed with its letter or
/// stands behind it. The rules are the same in every language.
class NameMatcher
{
public:
    explicit NameMatcher(QStringView name);

    bool matches(QStringView name) const;

    /// A name that is not UTF-8 matches nothing. Quick for the many names of a search.
    bool matchesFileName(QByteArrayView fileName) const;

private:
    /// Composed.
    QString m_name;
};
