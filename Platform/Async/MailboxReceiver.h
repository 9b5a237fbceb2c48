// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskScope.h"

#include <QFuture>
#include <QObject>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>

class QThread;

namespace platform {

class MailboxReceiver;

/// The slot of a mailbox: calls go in on any thread and are taken out on the receiver's.
class MailboxSlot {
public:
    /// A call: runs on the receiver's thread. Dropped unrun where the thread has ended.
    using Call = std::move_only_function<void(MailboxReceiver&)>;

    /// Queues a call, or drops it when the receiver is gone.
    void put(Call call);

    /// All calls that are queued, oldest first.
    std::deque<Call> takeAll();

    void open(MailboxReceiver& receiver);

    /// Drops what is queued and everything that is still to come. Gives the receiver to the first
    /// that closes, nothing to everyone after.
    MailboxReceiver* close();

private:
    std::mutex mutex_;
    std::deque<Call> calls_;
    MailboxReceiver* receiver_ = nullptr;
};

/// The end of a mailbox that lives on the other thread and ends with it.
class MailboxReceiver final : public QObject {
public:
    /// `make` runs on `thread` before the first call does.
    MailboxReceiver(std::shared_ptr<MailboxSlot> slot, QThread& thread,
                    std::move_only_function<std::shared_ptr<void>()> make);
    ~MailboxReceiver() override;

    /// The object that calls are made on.
    void* target() const { return target_.get(); }

    /// Tells the receiver's thread that calls wait.
    void notify();

    /// Runs a call's body. Cancelling `future` ends it.
    void run(Task<void> body, const QFuture<void>& future);

protected:
    bool event(QEvent* event) override;

private:
    class RunningCall;

    std::shared_ptr<MailboxSlot> slot_;
    std::move_only_function<std::shared_ptr<void>()> make_;
    std::shared_ptr<void> target_;
    std::vector<std::unique_ptr<RunningCall>> running_;
};

} // namespace platform
