// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Desktop/StatusItemDesktop.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

class QDBusPendingCallWatcher;

namespace platform {

class SystemTray;

/// Finds out, and follows, what there is on the desktop for status items. Waits for nobody. Lives
/// on the GUI thread.
class StatusItemDesktopObserver final : public QObject {
    Q_OBJECT

public:
    /// @param bus  the session bus; not connected: no watcher is ever seen
    /// @param tray must outlive the observer
    StatusItemDesktopObserver(const QDBusConnection& bus, const SystemTray& tray,
                              QObject* parent = nullptr);

    /// What is known. Before the first `changed`, that does not say much.
    const StatusItemDesktop& desktop() const { return desktop_; }

Q_SIGNALS:
    /// Something has changed, or was asked for the first time.
    void changed();

private:
    void askForWatcher();
    void takeWatcher(const QDBusPendingCallWatcher& answer);
    void lookAtTray();

    QDBusConnection bus_;
    const SystemTray& tray_;
    QDBusServiceWatcher owners_;
    StatusItemDesktop desktop_;
    /// Counts the questions, so that late answers are told from the latest.
    int question_ = 0;
    bool isKnown_ = false;
};

} // namespace platform
