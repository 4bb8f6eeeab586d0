#pragma once

#include "InMemoryFileSystem.h"
#include "Workspace.h"

#include <QList>
#include <QPromise>
#include <QTimer>

#include <algorithm>
#include <memory>

/// A Trash for a disk in memory. It answers from the event loop, as the real one does.
class FakeWorkspace : public Workspace
{
public:
    /// What becomes of an item and what is said of it; by default it is moved and confirmed.
    struct Reaction
    {
        bool moves = true;
        bool confirms = true;
        std::optional<QString> error = std::nullopt;
    };

    explicit FakeWorkspace(InMemoryFileSystem &disk) : m_disk(disk) { }

    void reactTo(const Url &item, const Reaction &reaction) { m_reactions.insert(item, reaction); }

    /// Every URL that was handed over, in order, and how many were under way at the same time at most.
    QList<Url> recycled;
    qsizetype mostAtOnce = 0;
    QList<Url> revealed;
    /// How often access to a location was granted, and how often it was not given back.
    int grants = 0;
    int openGrants = 0;

    QFuture<RecycleAnswer> recycle(const Url &item) override
    {
        recycled.append(item);
        mostAtOnce = std::max(mostAtOnce, ++m_underWay);
        const auto promise = std::make_shared<QPromise<RecycleAnswer>>();
        promise->start();
        QTimer::singleShot(0, [this, promise, item] {
            promise->addResult(answerFor(item));
            promise->finish();
        });
        return promise->future();
    }
    void waitForMoves() override { }
    void reveal(const Url &item) override { revealed.append(item); }
    std::optional<Url> locationOnDisk(const Url &location) const override { return location; }
    bool startAccessing(const Url &) override
    {
        ++openGrants;
        return ++grants;
    }
    void stopAccessing(const Url &) override { --openGrants; }

private:
    RecycleAnswer answerFor(const Url &item)
    {
        --m_underWay;
        const auto reaction = m_reactions.value(item);
        if (reaction.moves)
            m_disk.remove(item.standardizedPath());
        RecycleAnswer answer;
        if (reaction.confirms)
            answer.movedItems.insert(item, Url("/Users/me/.Trash") / item.lastPathComponent());
        answer.error = reaction.error;
        return answer;
    }

    InMemoryFileSystem &m_disk;
    QHash<Url, Reaction> m_reactions;
    qsizetype m_underWay = 0;
};
