// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/StatusItemDesktopObserver.h"

#include "Platform/DBus/ProcessName.h"
#include "Platform/Desktop/SystemTray.h"
#include "Platform/Desktop/X11.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace platform {

namespace {

const auto watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");

QStringList desktopNames() {
    return QString::fromLocal8Bit(qgetenv("XDG_CURRENT_DESKTOP"))
        .split(QLatin1Char(':'), Qt::SkipEmptyParts);
}

} // namespace

StatusItemDesktopObserver::StatusItemDesktopObserver(const QDBusConnection& bus,
                                                     const SystemTray& tray, QObject* parent)
    : QObject(parent),
      bus_(bus),
      tray_(tray),
      owners_(watcherService, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&owners_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            &StatusItemDesktopObserver::askForWatcher);
    connect(&tray, &SystemTray::managerChanged, this, &StatusItemDesktopObserver::lookAtTray);
    connect(&tray, &SystemTray::changed, this, &StatusItemDesktopObserver::lookAtTray);
    desktop_.isX11 = x11::connection() != nullptr;
    desktop_.names = desktopNames();
    lookAtTray();
    askForWatcher();
}

void StatusItemDesktopObserver::askForWatcher() {
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID"));
    auto* const answer = new QDBusPendingCallWatcher(bus_.asyncCall(call << watcherService), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [this, answer, question = ++question_] {
                if (question == question_)
                    takeWatcher(*answer);
                answer->deleteLater();
            });
}

void StatusItemDesktopObserver::takeWatcher(const QDBusPendingCallWatcher& answer) {
    const QDBusPendingReply<uint> process = answer;
    StatusItemDesktop desktop = desktop_;
    // A bus may well not know the process of a watcher that is there.
    desktop.hasWatcher =
        process.isValid() ||
        process.error().name() == QStringLiteral("org.freedesktop.DBus.Error.UnixProcessIdUnknown");
    desktop.watcherProcess = process.isValid() ? processName(process.value()) : QString();
    const bool isFirst = !std::exchange(isKnown_, true);
    if (isFirst || desktop != desktop_) {
        desktop_ = std::move(desktop);
        Q_EMIT changed();
    }
}

void StatusItemDesktopObserver::lookAtTray() {
    StatusItemDesktop desktop = desktop_;
    desktop.hasTray = tray_.manager() != 0;
    desktop.trayProcess = tray_.process();
    desktop.isTrayHorizontal = tray_.isHorizontal();
    if (std::exchange(desktop_, desktop) != desktop && isKnown_)
        Q_EMIT changed();
}

} // namespace platform
