// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/SignalAwaiter.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <chrono>

namespace platform {

/// A call of a method of the bus itself, such as "RequestName".
QDBusMessage callOfBus(const QString& method);

/// A method call to another program on the bus: sent when it is made, awaited once for its answer.
/// Nothing here waits for the other program in any other way.
///
///     const QDBusMessage answer = co_await DBusCall(bus, message, clock);
///
/// A wait that is given up leaves the call to its receiver; the answer is dropped when it comes.
/// Belongs to the thread it was made on, and to the coroutine that awaits it.
class [[nodiscard]] DBusCall : public Awaiter {
public:
    /// Long enough for a service that has to be started first.
    static constexpr std::chrono::seconds usualLimit{10};

    /// Sends `message`, a method call.
    ///
    /// @param limit how long the answer may take, counted on `clock` from now on; an answer that
    ///              comes later is dropped
    DBusCall(const QDBusConnection& bus, const QDBusMessage& message, Clock& clock,
             std::chrono::milliseconds limit = usualLimit);

    bool isReady() const { return watcher_.isFinished() || answered_.isReady(); }
    bool suspend(Suspension waiter) { return answered_.suspend(waiter); }

    /// The answer. Descriptors in it stay open for as long as any copy of it exists.
    /// @throws ServiceError where there is none, or an error
    QDBusMessage take() const;

private:
    QDBusPendingCallWatcher watcher_;
    SignalAwaiter<QDBusPendingCallWatcher*> answered_;
};

} // namespace platform
