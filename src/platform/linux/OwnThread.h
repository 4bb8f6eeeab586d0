#pragma once

#include <QFuture>
#include <QPromise>

#include <thread>
#include <type_traits>
#include <utility>

/// Does `work` on a thread of its own that nobody waits for: for what may hang and changes nothing here. Neither does
/// the program wait for it when it ends, so `work` owns whatever it uses.
template <typename Work> auto onThreadOfItsOwn(Work work)
{
    using Result = std::invoke_result_t<Work>;
    QPromise<Result> promise;
    auto future = promise.future();
    promise.start();
    std::thread([promise = std::move(promise), work = std::move(work)]() mutable {
        if constexpr (std::is_void_v<Result>)
            work();
        else
            promise.addResult(work());
        promise.finish();
    }).detach();
    return future;
}
