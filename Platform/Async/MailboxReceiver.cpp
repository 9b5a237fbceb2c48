// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/MailboxReceiver.h"

#include "Platform/Async/ThreadHandOver.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFutureWatcher>
#include <QThread>

namespace platform {

namespace {

QEvent::Type callType() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

} // namespace

void MailboxSlot::put(Call call) {
    const std::scoped_lock lock(mutex_);
    if (!receiver_)
        return; // the call's promise, dropped, tells the caller
    calls_.push_back(std::move(call));
    if (calls_.size() == 1)
        receiver_->notify();
}

std::deque<MailboxSlot::Call> MailboxSlot::takeAll() {
    const std::scoped_lock lock(mutex_);
    return std::exchange(calls_, {});
}

void MailboxSlot::open(MailboxReceiver& receiver) {
    const std::scoped_lock lock(mutex_);
    receiver_ = &receiver;
}

MailboxReceiver* MailboxSlot::close() {
    std::deque<Call> dropped;
    const std::scoped_lock lock(mutex_);
    std::swap(dropped, calls_);
    return std::exchange(receiver_, nullptr);
}

class MailboxReceiver::RunningCall {
public:
    RunningCall(Task<void> body, const QFuture<void>& future)
        : handle_(startTask(std::move(body))) {
        QObject::connect(&watcher_, &QFutureWatcherBase::canceled, &watcher_,
                         [this] { handle_.cancel(); });
        watcher_.setFuture(future);
    }

    bool isRunning() const { return handle_.isRunning(); }

private:
    TaskHandle handle_;
    QFutureWatcher<void> watcher_;
};

MailboxReceiver::MailboxReceiver(std::shared_ptr<MailboxSlot> slot, QThread& thread,
                                 std::move_only_function<std::shared_ptr<void>()> make)
    : slot_(std::move(slot)), make_(std::move(make)) {
    moveToThread(&thread);
    // Emitted by the thread itself after its event loop; only deferred deletions follow.
    connect(
        &thread, &QThread::finished, this,
        [this] {
            acquireFromOtherThread(this);
            if (slot_->close())
                deleteLater();
        },
        Qt::DirectConnection);
    slot_->open(*this);
    releaseToOtherThread(this);
}

MailboxReceiver::~MailboxReceiver() {
    running_.clear();
    target_.reset();
    releaseToOtherThread(&throughQt);
}

void MailboxReceiver::notify() {
    auto* const event = new QEvent(callType());
    releaseToOtherThread(this);
    QCoreApplication::postEvent(this, event);
}

void MailboxReceiver::run(Task<void> body, const QFuture<void>& future) {
    std::erase_if(running_, [](const auto& call) { return !call->isRunning(); });
    running_.push_back(std::make_unique<RunningCall>(std::move(body), future));
}

bool MailboxReceiver::event(QEvent* event) {
    acquireFromOtherThread(this);
    if (event->type() != callType())
        return QObject::event(event);
    auto calls = slot_->takeAll();
    if (make_)
        target_ = std::exchange(make_, nullptr)();
    for (auto& call : calls)
        call(*this);
    return true;
}

} // namespace platform
