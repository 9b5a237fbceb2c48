// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Awaiter.h"

#include <QtGlobal>

#include <coroutine>
#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

namespace platform {

template <typename T>
class Task;

namespace detail {

/// What the promises of all tasks share.
class TaskPromise {
public:
    std::suspend_always initial_suspend() noexcept { return {}; }

    auto final_suspend() noexcept {
        struct HandBack {
            TaskPromise& promise;
            bool await_ready() noexcept { return false; }
            void await_suspend(std::coroutine_handle<>) noexcept {
                promise.control_->setNext(promise.continuation_);
            }
            void await_resume() noexcept {}
        };
        return HandBack{*this};
    }

    void unhandled_exception() noexcept { error_ = std::current_exception(); }

    template <typename Awaited>
        requires std::derived_from<std::remove_cvref_t<Awaited>, Awaiter>
    auto await_transform(Awaited&& awaited) {
        // The temporary lives in the frame until the co_await expression has ended.
        return CancellableAwaiter<std::remove_reference_t<Awaited>&>(*control_, awaited);
    }

    template <typename Awaited>
        requires std::constructible_from<typename AwaiterOf<std::remove_cvref_t<Awaited>>::type,
                                         Awaited>
    auto await_transform(Awaited&& awaited) {
        using Wrapped = typename AwaiterOf<std::remove_cvref_t<Awaited>>::type;
        return CancellableAwaiter<Wrapped>(*control_, std::forward<Awaited>(awaited));
    }

    void attach(TaskControl& control, std::coroutine_handle<> continuation) {
        control_ = &control;
        continuation_ = continuation;
    }

    const std::exception_ptr& error() const { return error_; }

private:
    TaskControl* control_ = nullptr;
    std::coroutine_handle<> continuation_;
    std::exception_ptr error_;
};

template <typename T>
class ResultPromise : public TaskPromise {
public:
    Task<T> get_return_object();
    template <typename Value>
        requires std::convertible_to<Value&&, T>
    void return_value(Value&& value) {
        value_.emplace(std::forward<Value>(value));
    }
    T take() { return std::move(*value_); }

private:
    std::optional<T> value_;
};

template <>
class ResultPromise<void> : public TaskPromise {
public:
    Task<void> get_return_object();
    void return_void() noexcept {}
    void take() noexcept {}
};

} // namespace detail

/// The work of a coroutine, not begun yet. It begins when it is awaited, once, by another task on
/// the thread it was made on, or when `startTask` starts it. Whoever holds it owns its frame.
///
/// An exception that leaves the coroutine comes out of the `co_await`.
template <typename T = void>
class [[nodiscard]] Task {
public:
    using promise_type = detail::ResultPromise<T>;
    using Frame = std::coroutine_handle<promise_type>;

    Task() = default;
    explicit Task(Frame frame) : frame_(frame) {}
    Task(Task&& other) noexcept : frame_(std::exchange(other.frame_, nullptr)) {}
    Task& operator=(Task&& other) noexcept {
        std::swap(frame_, other.frame_);
        return *this;
    }
    ~Task() {
        if (frame_)
            frame_.destroy();
    }

    /// Gives up the frame; the caller destroys it.
    Frame release() && { return std::exchange(frame_, nullptr); }

private:
    Frame frame_;
};

namespace detail {

template <typename T>
Task<T> ResultPromise<T>::get_return_object() {
    return Task<T>(Task<T>::Frame::from_promise(*this));
}

inline Task<void> ResultPromise<void>::get_return_object() {
    return Task<void>(Task<void>::Frame::from_promise(*this));
}

/// Owns the child's frame for as long as the parent waits for it.
template <typename T>
class TaskAwaiter : public Awaiter {
public:
    explicit TaskAwaiter(Task<T>&& task) : frame_(std::move(task).release()) {
        Q_ASSERT_X(frame_, "co_await", "a task can be awaited only once");
    }
    ~TaskAwaiter() { frame_.destroy(); }

    bool isReady() const { return false; }

    bool suspend(Suspension parent) {
        parent.enter(frame_);
        return true;
    }

    T take() {
        if (frame_.promise().error())
            std::rethrow_exception(frame_.promise().error());
        return frame_.promise().take();
    }

private:
    typename Task<T>::Frame frame_;
};

} // namespace detail

template <typename T>
struct AwaiterOf<Task<T>> {
    using type = detail::TaskAwaiter<T>;
};

} // namespace platform
