#include "TrashService.h"

#include "BundleReader.h"
#include "FairTurn.h"
#include "FileSystem.h"
#include "PermittedArea.h"
#include "Workspace.h"

#include <QCoro/QCoroFuture>

#include <algorithm>

TrashService::TrashService(const FileSystem &fileSystem, const BundleReader &bundleReader, Workspace &workspace,
                           PrivilegedHelper &privilegedHelper)
    : m_fileSystem(fileSystem), m_bundleReader(bundleReader), m_workspace(workspace),
      m_privilegedHelper(privilegedHelper)
{
}

QCoro::Task<QList<DeletionOutcome>> TrashService::moveToTrash(QList<ScanItem> items,
                                                              std::optional<QString> bundleIdentifier)
{
    // Now, while the application's bundle is still there to be read.
    if (!bundleIdentifier)
        bundleIdentifier = identifierOfFirstApplication(items);

    QList<DeletionOutcome> outcomes;
    QElapsedTimer clock;
    const FairTurn turn(clock);
    for (const auto &item : std::as_const(items)) {
        co_await turn;
        auto move = moveItem(item.url);
        const auto error = co_await move;
        outcomes.append({item, error ? std::optional(error->description()) : std::nullopt});
    }

    if (bundleIdentifier) {
        auto handedOver = handFailuresToHelper(outcomes, *bundleIdentifier);
        outcomes = co_await handedOver;
    }
    auto reconciled = reconcileOutcomes(std::move(outcomes));
    co_return co_await reconciled;
}

std::optional<TrashServiceError> TrashService::validate(const Url &url) const
{
    if (isGone(url))
        return TrashServiceError{TrashServiceError::missingItem, {}};
    if (belongsToSystem(url))
        return TrashServiceError{TrashServiceError::systemApplication, {}};
    if (!isInsidePermittedArea(url, m_fileSystem.homeDirectory()))
        return TrashServiceError{TrashServiceError::unsafePath, {}};
    return std::nullopt;
}

QCoro::Task<std::optional<TrashServiceError>> TrashService::recycle(Url url)
{
    const auto recycling = m_workspace.recycle(url);
    const auto answer = co_await recycling;
    // What is gone needs no further explanation, whatever the workspace says of it.
    if (isGone(url) || (!answer.error && answer.movedItems.contains(url)))
        co_return std::nullopt;
    const auto unconfirmed = QStringLiteral("Finder nie potwierdził przeniesienia elementu do Kosza.");
    co_return TrashServiceError{TrashServiceError::recycleFailed, answer.error.value_or(unconfirmed)};
}

QCoro::Task<QList<DeletionOutcome>> TrashService::reconcileOutcomes(QList<DeletionOutcome> outcomes) const
{
    QElapsedTimer clock;
    const FairTurn turn(clock);
    for (auto &outcome : outcomes) {
        co_await turn;
        if (outcome.errorDescription && isGone(outcome.item.url))
            outcome.errorDescription.reset();
    }
    co_return outcomes;
}

std::optional<QString> TrashService::identifierOfFirstApplication(const QList<ScanItem> &items) const
{
    const auto application = std::ranges::find(items, ScanItemKind::application, &ScanItem::kind);
    if (application == items.end())
        return std::nullopt;
    const auto bundle = m_bundleReader.open(application->url);
    return bundle ? bundle->identifier() : std::nullopt;
}

QCoro::Task<std::optional<TrashServiceError>> TrashService::moveItem(Url url)
{
    auto error = validate(url);
    if (!error) {
        auto recycling = recycle(url);
        error = co_await recycling;
    }
    co_return error;
}

QCoro::Task<QList<DeletionOutcome>> TrashService::handFailuresToHelper(QList<DeletionOutcome> outcomes,
                                                                       QString bundleIdentifier)
{
    QElapsedTimer clock;
    const FairTurn turn(clock);
    QList<Url> failedItems;
    for (const auto &outcome : std::as_const(outcomes)) {
        co_await turn;
        if (outcome.errorDescription)
            failedItems.append(outcome.item.url);
    }
    if (failedItems.isEmpty())
        co_return outcomes;

    auto request = m_privilegedHelper.moveItemsToTrash(failedItems, bundleIdentifier);
    const auto reply = co_await request;
    for (auto &outcome : outcomes) {
        co_await turn;
        if (!outcome.errorDescription)
            continue;
        if (reply.errorDescription) {
            outcome.errorDescription = reply.errorDescription;
            continue;
        }
        const auto message = reply.messages.constFind(outcome.item.id());
        if (message == reply.messages.constEnd())
            continue;
        if (message->isEmpty())
            outcome.errorDescription.reset();
        else
            outcome.errorDescription = *message;
    }
    co_return outcomes;
}

// Whether nothing is at the item's path; a link counts by its target. What cannot be looked at may remain.
bool TrashService::isGone(const Url &url) const
{
    return m_fileSystem.isGone(url.standardized());
}
