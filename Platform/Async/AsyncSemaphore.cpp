// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/AsyncSemaphore.h"

namespace platform {

QFuture<AsyncSemaphore::Permit> AsyncSemaphore::acquire() {
    QPromise<Permit> promise;
    promise.start();
    QFuture<Permit> future = promise.future();
    if (free_ == 0) {
        waiting_.push_back(std::move(promise));
        return future;
    }
    --free_;
    promise.addResult(Permit(*this));
    promise.finish();
    return future;
}

void AsyncSemaphore::release() {
    while (!waiting_.empty()) {
        QPromise<Permit> next = std::move(waiting_.front());
        waiting_.pop_front();
        if (next.isCanceled())
            continue;
        next.addResult(Permit(*this));
        next.finish();
        return;
    }
    ++free_;
}

} // namespace platform
