// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/DBus/DBusCall.h"

#include "Platform/DBus/ServiceError.h"
#include "Platform/Foundation/StringTable.h"

#include <QDBusError>

#include <algorithm>
#include <limits>
#include <utility>

namespace platform {

namespace {

/// When the bus library forgets a call, in milliseconds. Later than our own limit, which is the one
/// that counts, but not never: the library keeps each call until then, also one nobody waits for.
int libraryLimit(std::chrono::milliseconds limit) {
    constexpr std::chrono::milliseconds margin = std::chrono::seconds(5);
    constexpr std::chrono::milliseconds longest{std::numeric_limits<int>::max() - 1};
    return static_cast<int>(
               std::clamp(limit, std::chrono::milliseconds::zero(), longest - margin).count()) +
           static_cast<int>(margin.count());
}

ServiceError::Code codeOf(const QDBusError& error) {
    using enum ServiceError::Code;
    switch (error.type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::NoServer:
    case QDBusError::Disconnected:
        return unavailable;
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        return unanswered;
    default:
        break;
    }
    // These have no type of their own; the first is a family.
    const bool isUnavailable =
        error.name().startsWith(QLatin1StringView("org.freedesktop.DBus.Error.Spawn.")) ||
        error.name() == QLatin1StringView("org.freedesktop.DBus.Error.NameHasNoOwner");
    return isUnavailable ? unavailable : refused;
}

ServiceError errorOf(const QDBusMessage& answer) {
    const QString text = answer.errorMessage().simplified();
    return {codeOf(QDBusError(answer)), text.isEmpty() ? answer.errorName() : text};
}

} // namespace

DBusCall::DBusCall(const QDBusConnection& bus, const QDBusMessage& message, Clock& clock,
                   std::chrono::milliseconds limit)
    : watcher_(
          std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(message, libraryLimit(limit)))),
      timer_(clock.startTimer(limit, [this] { giveUp(); })) {
    QObject::connect(watcher_.get(), &QDBusPendingCallWatcher::finished, watcher_.get(), [this] {
        timer_.reset();
        resumeWaiter();
    });
}

bool DBusCall::suspend(Suspension waiter) {
    waiter_ = waiter;
    return true;
}

QDBusMessage DBusCall::take() const {
    if (!watcher_) {
        throw ServiceError(ServiceError::Code::unanswered,
                           localized("Platform", "The service does not answer."));
    }
    const QDBusMessage answer = watcher_->reply();
    if (answer.type() == QDBusMessage::ErrorMessage)
        throw errorOf(answer);
    return answer;
}

void DBusCall::giveUp() {
    if (watcher_->isFinished())
        return; // the answer is here; its signal is on the way
    watcher_.reset();
    resumeWaiter();
}

void DBusCall::resumeWaiter() {
    if (const Suspension waiter = std::exchange(waiter_, {}))
        waiter.resume();
}

} // namespace platform
