// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Platform/Desktop/StatusItemDesktop.h"
#include "Platform/Foundation/Clock.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace platform {

class SystemTray;

/// Finds out, and follows, what there is on the desktop for status items. Waits for nobody. Lives
/// on the GUI thread.
class StatusItemDesktopObserver final : public QObject {
    Q_OBJECT

public:
    /// @param bus   the session bus; not connected: no watcher is ever seen
    /// @param tray  must outlive the observer
    /// @param clock must outlive the observer
    StatusItemDesktopObserver(const QDBusConnection& bus, const SystemTray& tray, Clock& clock);

    /// What is known. While `isKnown` is false, before the first `changed`, not much.
    const StatusItemDesktop& desktop() const { return desktop_; }
    bool isKnown() const { return isKnown_; }

Q_SIGNALS:
    /// Something has changed, or was asked for the first time.
    void changed();

private:
    Task<> findWatcher();
    void lookAtTray();

    QDBusConnection bus_;
    const SystemTray& tray_;
    Clock& clock_;
    QDBusServiceWatcher owners_;
    StatusItemDesktop desktop_;
    bool isKnown_ = false;
    TaskHandle search_;
};

} // namespace platform
