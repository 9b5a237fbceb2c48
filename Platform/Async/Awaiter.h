// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskControl.h"

#include <concepts>
#include <coroutine>
#include <utility>

namespace platform {

/// Base of everything that a task may await. A derived class offers
///
///     bool isReady();                     // no need to wait
///     bool suspend(Suspension waiter);    // false: became ready meanwhile, do not wait
///     T take();                           // the result, or throws
///
/// and deregisters in its destructor, after which it resumes nobody: that is how a wait is
/// cancelled. `suspend` resumes and destroys nothing itself.
class Awaiter {
public:
    Awaiter() = default;
    Awaiter(const Awaiter&) = delete;
    Awaiter& operator=(const Awaiter&) = delete;

protected:
    ~Awaiter() = default;
};

/// Tells which awaiter waits for a type that is none itself: a specialisation names it as `type`,
/// and it is constructible from the awaited value. What has neither does not compile in a
/// `co_await`.
template <typename Awaited>
struct AwaiterOf;

/// Stands between a coroutine and an awaiter: where the task has been cancelled while it was
/// running, the wait never begins, even one that would be over at once, and the task ends instead.
template <typename Wrapped>
class CancellableAwaiter {
public:
    template <typename Argument>
    CancellableAwaiter(TaskControl& control, Argument&& argument)
        : control_(control), wrapped_(std::forward<Argument>(argument)) {}

    bool await_ready() { return !control_.isCancelRequested() && wrapped_.isReady(); }

    bool await_suspend(std::coroutine_handle<> coroutine) {
        if (control_.isCancelRequested())
            return true;
        return wrapped_.suspend(Suspension(control_, coroutine));
    }

    decltype(auto) await_resume() { return wrapped_.take(); }

private:
    TaskControl& control_;
    Wrapped wrapped_;
};

} // namespace platform
