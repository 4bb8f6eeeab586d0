#pragma once

#include <QFuture>
#include <QPromise>

#include <type_traits>
#include <utility>

// What Qt 6.4 has for this is deprecated in Qt 6.8, and what 6.8 has instead is not in 6.4.

/// A future that has `result` already.
template <typename T> QFuture<std::decay_t<T>> readyFuture(T &&result)
{
    QPromise<std::decay_t<T>> promise;
    promise.start();
    promise.addResult(std::forward<T>(result));
    promise.finish();
    return promise.future();
}

/// A future of something that has already happened.
inline QFuture<void> readyFuture()
{
    QPromise<void> promise;
    promise.start();
    promise.finish();
    return promise.future();
}
