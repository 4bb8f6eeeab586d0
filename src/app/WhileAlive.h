#pragma once

#include <QCoro/QCoroFuture>
#include <QCoro/QCoroTask>
#include <QObject>
#include <QPointer>

/// Ends a workflow whose state object is gone. Nothing catches it: it unwinds the workflow and those that wait for
/// it, and is dropped with the outermost one.
struct StateIsGone
{
};

/// What a future or a task comes to. When `state` is gone by then, the workflow that awaits this ends there, without
/// touching anything; so what follows an await needs no look at whether the state still lives.
///
/// On the main thread. Name the answer on a line of its own and await it on the next: the compiler that we support
/// destroys the temporaries of an awaiting expression twice.
template <template <typename> typename Pending, typename Result>
QCoro::Task<Result> whileAlive(QPointer<const QObject> state, Pending<Result> pending)
{
    auto result = co_await pending;
    if (!state)
        throw StateIsGone();
    co_return result;
}
