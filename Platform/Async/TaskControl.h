// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <coroutine>
#include <exception>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace platform {

/// How a started task ended.
enum class TaskOutcome {
    completed, ///< ran to its end
    cancelled, ///< was ended at a suspension point
    failed,    ///< an exception left it; the unhandled-error hook has seen it
};

class TaskControl;

/// What an awaiter keeps of the coroutine that waits for it.
class Suspension {
public:
    Suspension() = default;
    Suspension(TaskControl& control, std::coroutine_handle<> coroutine)
        : control_(&control), coroutine_(coroutine) {}

    explicit operator bool() const { return control_ != nullptr; }

    /// Continues the coroutine. The awaiter that calls this may be gone when it returns.
    void resume() const;

    /// Makes `child` run next, as part of the same task; at its end the coroutine continues.
    template <typename Promise>
    void enter(std::coroutine_handle<Promise> child) const;

    /// Whether the coroutine belongs to the task that `control` drives.
    bool isPartOf(const TaskControl& control) const { return control_ == &control; }

private:
    TaskControl* control_ = nullptr;
    std::coroutine_handle<> coroutine_;
};

/// The engine of one started task: resumes its frames in a loop, so that neither a long chain of
/// awaits nor a million of them in a row grows the stack, and ends it by destroying the frames.
///
/// Made by `startTask`; used by tasks and awaiters, not by the code that awaits. Belongs to the
/// thread it was made on.
class TaskControl final : public QObject, public std::enable_shared_from_this<TaskControl> {
public:
    /// Receives the exception that left a started task.
    using UnhandledErrorHook = void (*)(const std::exception_ptr& error) noexcept;

    /// Sets what is called with an exception that leaves any started task; the one before is
    /// returned. The first one prints the error's text to the standard error stream.
    static UnhandledErrorHook setUnhandledErrorHook(UnhandledErrorHook hook);

    /// Takes over the outermost frame. `error` must point into it, to where its exception is kept.
    TaskControl(std::coroutine_handle<> root, const std::exception_ptr& error);
    ~TaskControl() override;

    /// Posts the first step.
    void start();

    /// Ends the task: now where it is suspended, at its next `co_await` where it is running.
    /// Does nothing once the task has ended.
    void cancel();

    /// Absent while the task runs.
    std::optional<TaskOutcome> outcome() const { return outcome_; }

    bool isCancelRequested() const { return cancelRequested_; }
    bool isRunningNow() const { return running_; }

    /// Names the frame that the loop resumes once the present one has suspended; none for none.
    void setNext(std::coroutine_handle<> next) { next_ = next; }

    /// Runs frames until none is ready.
    void run(std::coroutine_handle<> first);

    /// Registers somebody who waits for the end. The entry is resumed by a posted event.
    void addWaiter(const Suspension* waiter);
    void removeWaiter(const Suspension* waiter);

protected:
    bool event(QEvent* event) override;

private:
    void finish(TaskOutcome outcome);
    void resumeWaiters();

    std::coroutine_handle<> root_;
    const std::exception_ptr& error_;
    std::coroutine_handle<> next_;
    std::optional<TaskOutcome> outcome_;
    std::vector<const Suspension*> waiters_;
    bool running_ = false;
    bool cancelRequested_ = false;
};

template <typename Promise>
void Suspension::enter(std::coroutine_handle<Promise> child) const {
    child.promise().attach(*control_, coroutine_);
    control_->setNext(child);
}

} // namespace platform
