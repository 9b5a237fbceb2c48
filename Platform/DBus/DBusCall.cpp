// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/DBus/DBusCall.h"

#include "Platform/DBus/ServiceError.h"
#include "Platform/Foundation/StringTable.h"

#include <QDBusError>

#include <algorithm>
#include <limits>

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

QDBusMessage callOfBus(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

DBusCall::DBusCall(const QDBusConnection& bus, const QDBusMessage& message, Clock& clock,
                   std::chrono::milliseconds limit)
    : watcher_(bus.asyncCall(message, libraryLimit(limit))),
      answered_(watcher_, &QDBusPendingCallWatcher::finished, clock, limit) {}

QDBusMessage DBusCall::take() const {
    if (!watcher_.isFinished()) { // the time was up
        throw ServiceError(ServiceError::Code::unanswered,
                           localized("Platform", "The service does not answer."));
    }
    const QDBusMessage answer = watcher_.reply();
    if (answer.type() == QDBusMessage::ErrorMessage)
        throw errorOf(answer);
    return answer;
}

} // namespace platform
