#pragma once

#include "ApplicationRegistry.h"

#include <QHash>

#include <atomic>

/// Knows the applications that a test registered, and how often it was read.
class FakeApplicationRegistry : public ApplicationRegistry
{
public:
    void add(const QString &bundleIdentifier, const Url &url = Url("/Applications/Any.app"))
    {
        m_applications.insert(bundleIdentifier, url);
    }
    int timesRead() const { return m_timesRead; }

    std::unique_ptr<ApplicationIndex> index() const override
    {
        ++m_timesRead;
        return std::make_unique<Index>(m_applications);
    }

private:
    using Applications = QHash<QString, Url>;

    class Index : public ApplicationIndex
    {
    public:
        explicit Index(const Applications &applications) : m_applications(applications) { }
        std::optional<Url> urlForApplication(const QString &bundleIdentifier) const override
        {
            const auto url = m_applications.constFind(bundleIdentifier);
            return url == m_applications.constEnd() ? std::nullopt : std::optional(*url);
        }

    private:
        Applications m_applications;
    };

    Applications m_applications;
    mutable std::atomic<int> m_timesRead = 0;
};
