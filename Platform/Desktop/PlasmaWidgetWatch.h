// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskHandle.h"
#include "Platform/Foundation/Clock.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>

#include <memory>

namespace platform {

/// Follows whether a widget of one kind is on Plasma's panels or desktop. Asks Plasma's shell when
/// it appears and whenever it has written its layout, which it does within ten seconds of a change;
/// never asks by the clock. Lives on the GUI thread.
class PlasmaWidgetWatch final : public QObject {
    Q_OBJECT

public:
    enum class State {
        absent,  ///< Plasma does not run, or does not know the widget
        offered, ///< the widget is installed, and placed nowhere
        shown,
    };

    /// @param widget the kind's name, as in its metadata
    /// @param bus    the session bus; not connected: always absent
    /// @param clock  must outlive the watch
    PlasmaWidgetWatch(QString widget, const QDBusConnection& bus, Clock& clock);

    State state() const { return state_; }

Q_SIGNALS:
    void stateChanged();

private:
    void ask();
    Task<> askShell();
    void setState(State state);

    QString widget_;
    QDBusConnection bus_;
    Clock& clock_;
    QDBusServiceWatcher shell_;
    QFileSystemWatcher files_;
    State state_ = State::absent;
    TaskHandle question_;
    std::unique_ptr<ClockTimer> soon_;
};

} // namespace platform
