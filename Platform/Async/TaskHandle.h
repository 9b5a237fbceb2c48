// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"

#include <memory>

namespace platform {

/// Waits for the end of a started task. Made by `TaskHandle::finished`.
class [[nodiscard]] TaskEnd : public Awaiter {
public:
    explicit TaskEnd(std::shared_ptr<TaskControl> control) : control_(std::move(control)) {}
    ~TaskEnd();

    bool isReady() const { return control_->outcome().has_value(); }
    bool suspend(Suspension waiter);
    TaskOutcome take() const { return *control_->outcome(); }

private:
    std::shared_ptr<TaskControl> control_;
    Suspension waiter_;
};

/// Owns a started task: destroying the handle, or assigning over it, cancels the task. Belongs to
/// the thread the task was started on.
class [[nodiscard]] TaskHandle {
public:
    /// Owns nothing.
    TaskHandle() = default;
    TaskHandle(TaskHandle&&) noexcept = default;
    TaskHandle& operator=(TaskHandle&& other) noexcept;
    ~TaskHandle() { cancel(); }

    /// Ends the task: at once where it is suspended, innermost frame first; at its next `co_await`,
    /// even a ready one, where it is running. Does nothing to a task that has ended.
    void cancel();

    /// Whether there is a task and it has not ended.
    bool isRunning() const { return control_ && !control_->outcome(); }

    /// Whether there is a task, ended or not.
    explicit operator bool() const { return control_ != nullptr; }

    /// Waits for the task's end, however it comes, and gives its outcome. The handle may be gone by
    /// then. There must be a task, and it must not be the one that waits.
    TaskEnd finished() const;

private:
    friend TaskHandle startTask(Task<void> task);
    explicit TaskHandle(std::shared_ptr<TaskControl> control) : control_(std::move(control)) {}

    std::shared_ptr<TaskControl> control_;
};

/// Starts a task on this thread. Its first step runs from the event loop, never inside this call.
/// An exception that leaves it goes to the hook of `TaskControl::setUnhandledErrorHook`.
TaskHandle startTask(Task<void> task);

} // namespace platform
