// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/StatusItemDesktopObserver.h"

#include "Platform/DBus/DBusCall.h"
#include "Platform/DBus/ProcessName.h"
#include "Platform/DBus/ServiceError.h"
#include "Platform/Desktop/SystemTray.h"
#include "Platform/Desktop/X11.h"

#include <QDBusMessage>

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
                                                     const SystemTray& tray, Clock& clock)
    : bus_(bus),
      tray_(tray),
      clock_(clock),
      owners_(watcherService, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&owners_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this] { search_ = startTask(findWatcher()); });
    connect(&tray, &SystemTray::managerChanged, this, &StatusItemDesktopObserver::lookAtTray);
    connect(&tray, &SystemTray::changed, this, &StatusItemDesktopObserver::lookAtTray);
    desktop_.isX11 = x11::connection() != nullptr;
    desktop_.names = desktopNames();
    lookAtTray();
    search_ = startTask(findWatcher());
}

Task<> StatusItemDesktopObserver::findWatcher() {
    const auto call = callOfBus(QStringLiteral("GetConnectionUnixProcessID")) << watcherService;
    bool hasWatcher = true;
    QString process;
    try {
        const QDBusMessage answer = co_await DBusCall(bus_, call, clock_);
        process = processName(answer.arguments().value(0).toUInt());
    } catch (const ServiceError& error) {
        // A bus may well not know the process of a watcher that is there.
        hasWatcher = error.code() == ServiceError::Code::refused;
    }
    const bool isFirst = !std::exchange(isKnown_, true);
    const bool isSame = desktop_.hasWatcher == hasWatcher && desktop_.watcherProcess == process;
    desktop_.hasWatcher = hasWatcher;
    desktop_.watcherProcess = process;
    if (isFirst || !isSame)
        Q_EMIT changed();
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
