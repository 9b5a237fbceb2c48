// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/TaskHandle.h"

namespace platform {

TaskEnd::~TaskEnd() {
    if (waiter_)
        control_->removeWaiter(&waiter_);
}

bool TaskEnd::suspend(Suspension waiter) {
    Q_ASSERT_X(!waiter.isPartOf(*control_), "co_await", "a task cannot wait for its own end");
    waiter_ = waiter;
    control_->addWaiter(&waiter_);
    return true;
}

TaskHandle& TaskHandle::operator=(TaskHandle&& other) noexcept {
    // Assigned first: what the cancelled task's frames do as they end sees the new value.
    TaskHandle replaced(std::exchange(control_, std::move(other.control_)));
    return *this;
}

void TaskHandle::cancel() {
    if (const auto control = control_)
        control->cancel();
}

TaskEnd TaskHandle::finished() const {
    Q_ASSERT_X(control_, "TaskHandle", "there is no task to wait for");
    return TaskEnd(control_);
}

TaskHandle startTask(Task<void> task) {
    const auto frame = std::move(task).release();
    Q_ASSERT_X(frame, "startTask", "an empty task cannot be started");
    const auto control = std::make_shared<TaskControl>(frame, frame.promise().error());
    frame.promise().attach(*control, nullptr);
    control->start();
    return TaskHandle(control);
}

} // namespace platform
