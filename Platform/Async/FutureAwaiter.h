// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Awaiter.h"
#include "Platform/Async/CancelledError.h"
#include "Platform/Async/ThreadHandOver.h"

#include <QFuture>
#include <QFutureWatcher>

namespace platform {

/// Waits for a `QFuture`, the one bridge between threads: resumes on the awaiting thread with the
/// result, or rethrows what the other side threw. Throws `CancelledError` where there is no result.
///
/// The wait takes the future over: a wait that is given up cancels it, so that the work behind it
/// ends.
template <typename T>
class FutureAwaiter : public Awaiter {
public:
    explicit FutureAwaiter(QFuture<T> future) : future_(std::move(future)) {}
    ~FutureAwaiter() {
        if (!future_.isFinished())
            future_.cancel();
    }

    bool isReady() const { return future_.isFinished(); }

    bool suspend(Suspension waiter) {
        QObject::connect(&watcher_, &QFutureWatcherBase::finished, &watcher_,
                         [waiter] { waiter.resume(); });
        watcher_.setFuture(future_);
        return true;
    }

    T take() {
        acquireFromOtherThread(&throughQt);
        future_.waitForFinished(); // does not wait any more; rethrows
        if (future_.isCanceled() || !hasResult())
            throw CancelledError();
        if constexpr (!std::is_void_v<T>)
            return future_.takeResult();
    }

private:
    bool hasResult() const {
        if constexpr (std::is_void_v<T>)
            return true;
        else
            return future_.resultCount() > 0;
    }

    QFuture<T> future_;
    QFutureWatcher<T> watcher_;
};

template <typename T>
struct AwaiterOf<QFuture<T>> {
    using type = FutureAwaiter<T>;
};

} // namespace platform
