#pragma once

#include "ApplicationRegistry.h"
#include "Spelling.h"

#include <QSet>

#include <atomic>

/// Knows the applications that a test registered, and how often it was read.
class FakeApplicationRegistry : public ApplicationRegistry
{
public:
    void add(const QString &bundleIdentifier) { m_known.identifiers.insert(caselessForm(bundleIdentifier)); }
    int timesRead() const { return m_timesRead; }

    std::unique_ptr<ApplicationIndex> index() const override
    {
        ++m_timesRead;
        return std::make_unique<Index>(m_known);
    }

private:
    struct Index : ApplicationIndex
    {
        std::optional<Url> urlForApplication(const QString &identifier) const override
        {
            return identifiers.contains(caselessForm(identifier)) ? std::optional(Url("/Applications/Any.app"))
                                                                  : std::nullopt;
        }
        QSet<QString> identifiers;
    };

    Index m_known;
    mutable std::atomic<int> m_timesRead = 0;
};
