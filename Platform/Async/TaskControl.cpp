// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/TaskControl.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <cstdio>

namespace platform {

namespace {

QEvent::Type eventType() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

void printError(const std::exception_ptr& error) noexcept {
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "quorvel: an error left a task: %s\n", exception.what());
    } catch (...) {
        std::fputs("quorvel: an error of unknown type left a task\n", stderr);
    }
}

std::atomic<TaskControl::UnhandledErrorHook> unhandledErrorHook = printError;

} // namespace

void Suspension::resume() const {
    // Copied first: the object this is called on may be part of a frame that ends meanwhile.
    const Suspension self = *this;
    self.control_->run(self.coroutine_);
}

TaskControl::UnhandledErrorHook TaskControl::setUnhandledErrorHook(UnhandledErrorHook hook) {
    return unhandledErrorHook.exchange(hook);
}

TaskControl::TaskControl(std::coroutine_handle<> root, const std::exception_ptr& error)
    : root_(root), error_(error) {
    Q_ASSERT_X(root, "TaskControl", "an empty task cannot be started");
}

TaskControl::~TaskControl() {
    Q_ASSERT(outcome_ && waiters_.empty());
}

void TaskControl::start() {
    QCoreApplication::postEvent(this, new QEvent(eventType()));
}

void TaskControl::cancel() {
    Q_ASSERT(thread() == QThread::currentThread());
    if (outcome_)
        return;
    cancelRequested_ = true;
    if (!running_)
        finish(TaskOutcome::cancelled);
}

void TaskControl::run(std::coroutine_handle<> first) {
    Q_ASSERT(thread() == QThread::currentThread());
    Q_ASSERT(!running_ && !outcome_);
    const auto keptAlive = shared_from_this();
    running_ = true;
    next_ = first;
    while (next_)
        std::exchange(next_, nullptr).resume();
    running_ = false;
    if (root_.done())
        finish(error_ ? TaskOutcome::failed : TaskOutcome::completed);
    else if (cancelRequested_)
        finish(TaskOutcome::cancelled);
}

void TaskControl::finish(TaskOutcome outcome) {
    const auto keptAlive = weak_from_this().lock(); // does not throw: destructors come here
    // Set before the frames die: their destructors may ask, or cancel once more.
    outcome_ = outcome;
    const std::exception_ptr error = error_;
    std::exchange(root_, nullptr).destroy();
    if (!waiters_.empty())
        QCoreApplication::postEvent(this, new QEvent(eventType()));
    if (outcome == TaskOutcome::failed)
        unhandledErrorHook.load()(error);
}

void TaskControl::addWaiter(const Suspension* waiter) {
    waiters_.push_back(waiter);
}

void TaskControl::removeWaiter(const Suspension* waiter) {
    std::erase(waiters_, waiter);
}

void TaskControl::resumeWaiters() {
    while (!waiters_.empty()) {
        const Suspension* const waiter = waiters_.front();
        waiters_.erase(waiters_.begin());
        waiter->resume();
    }
}

bool TaskControl::event(QEvent* event) {
    if (event->type() != eventType())
        return QObject::event(event);
    const auto keptAlive = shared_from_this();
    if (outcome_)
        resumeWaiters();
    else
        run(root_);
    return true;
}

} // namespace platform
