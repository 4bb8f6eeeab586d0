#pragma once

#include "HelperService.h"
#include "ReadyFuture.h"

#include <algorithm>

/// Service management and a helper that answer what a test tells them to, and keep what they were asked.
class FakeHelperService : public HelperService
{
public:
    /// One a query; the last one stays.
    QList<int> statuses{1};
    std::optional<QString> registrationError;
    HelperAnswer answer;

    int registrations = 0;
    int timesSettingsOpened = 0;
    /// The paths of every request, and the identifier of the last one.
    QList<QList<QByteArray>> requests;
    QString bundleIdentifier;

    QFuture<HelperStatus> status() const override
    {
        const auto query = m_queries++;
        const auto number = statuses.value(std::min(query, statuses.size() - 1));
        return readyFuture(static_cast<HelperStatus>(number));
    }
    QFuture<std::optional<QString>> registerService() override
    {
        ++registrations;
        return readyFuture(registrationError);
    }
    void openApprovalSettings() override { ++timesSettingsOpened; }
    QFuture<HelperAnswer> moveItemsToTrash(const QList<QByteArray> &standardizedPaths,
                                           const QString &identifier) override
    {
        requests.append(standardizedPaths);
        bundleIdentifier = identifier;
        return readyFuture(answer);
    }

private:
    mutable qsizetype m_queries = 0;
};
