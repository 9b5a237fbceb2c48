// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/FutureAwaiter.h"
#include "Platform/Async/MailboxReceiver.h"
#include "Platform/Async/ThreadHandOver.h"

#include <QPromise>

#include <concepts>
#include <memory>
#include <utility>

namespace platform {

namespace detail {

template <typename T>
struct CallResult {
    using type = T;
};

template <typename T>
struct CallResult<Task<T>> {
    using type = T;
};

/// Runs a call's body and keeps its promise. Where the body is cancelled, the promise is dropped
/// with the frame, which cancels the caller's future.
template <typename T>
Task<void> keepPromise(QPromise<T> promise, Task<T> body) {
    try {
        if constexpr (std::is_void_v<T>)
            co_await std::move(body);
        else
            promise.addResult(co_await std::move(body));
    } catch (...) {
        promise.setException(std::current_exception());
    }
    releaseToOtherThread(&throughQt);
    promise.finish();
}

template <typename T, typename Function, typename Object>
void answer(QPromise<T>& promise, Function& function, Object& object) {
    try {
        if constexpr (std::is_void_v<T>)
            function(object);
        else
            promise.addResult(function(object));
    } catch (...) {
        promise.setException(std::current_exception());
    }
    releaseToOtherThread(&throughQt);
    promise.finish();
}

} // namespace detail

/// An object that lives on another thread, and the only way to reach it.
///
/// The object is made on its thread at the first call and destroyed there with the mailbox or at
/// the thread's end, whichever comes first. Calls start in the order in which they were put and
/// interleave where they suspend.
template <typename Object>
class Mailbox {
public:
    /// `make` runs on `thread` and gives the object. The thread must outlive the mailbox, running
    /// or ended.
    Mailbox(QThread& thread, std::move_only_function<std::unique_ptr<Object>()> make)
        : slot_(std::make_shared<MailboxSlot>()) {
        new MailboxReceiver(slot_, thread, [make = std::move(make)]() mutable {
            return std::shared_ptr<void>(std::shared_ptr<Object>(make()));
        });
    }
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;
    ~Mailbox() {
        if (QObject* const receiver = slot_->close()) {
            releaseToOtherThread(receiver);
            receiver->deleteLater();
        }
    }

    /// Calls `function(object)` on the object's thread, where it may give a value or a task. From
    /// any thread. The future fails as the call does. Cancelling it skips the call or ends it where
    /// it suspends. Once the thread has ended every call comes back cancelled, the unfinished ones
    /// too.
    template <std::invocable<Object&> Function>
    auto call(Function function)
        -> QFuture<typename detail::CallResult<std::invoke_result_t<Function&, Object&>>::type> {
        using Returned = std::invoke_result_t<Function&, Object&>;
        using Result = typename detail::CallResult<Returned>::type;
        QPromise<Result> promise;
        promise.start();
        const auto future = promise.future();
        slot_->put([promise = std::move(promise),
                    function = std::move(function)](MailboxReceiver& receiver) mutable {
            auto& object = *static_cast<Object*>(receiver.target());
            if (promise.isCanceled())
                return;
            if constexpr (std::same_as<Result, Returned>) {
                detail::answer(promise, function, object);
            } else {
                const QFuture<void> watched(promise.future());
                receiver.run(detail::keepPromise(std::move(promise), function(object)), watched);
            }
        });
        return future;
    }

private:
    std::shared_ptr<MailboxSlot> slot_;
};

} // namespace platform
