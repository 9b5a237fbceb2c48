// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateBus.h"
#include "Tests/Support/VirtualDisplay.h"

#include <QImage>
#include <QRect>
#include <QStringList>
#include <QTemporaryDir>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace test {

/// A virtual display with a session on it: a bus, a window manager and a compositor, each a process
/// of its own. The environment names them while it lives. What a user does is done by X events, and
/// what is seen is cut from the display by another program.
///
/// Calls throw std::runtime_error where a program is not installed or does not do its part.
class VirtualDesktop {
public:
    static constexpr QSize screen{1280, 800};

    VirtualDesktop();
    VirtualDesktop(const VirtualDesktop&) = delete;
    VirtualDesktop& operator=(const VirtualDesktop&) = delete;
    ~VirtualDesktop();

    /// Writes a file of the desktop's settings. `path` is below the folder of all settings.
    void writeSettings(const QString& path, const QByteArray& bytes) const;

    /// Sets a variable of the environment until this object ends; absent leaves it out.
    void setVariable(const char* name, const std::optional<QByteArray>& value);

    /// A window manager and a compositor on the display itself.
    void startX11Session();

    /// A Wayland compositor whose one output is the display, with an X server for those who want
    /// one. It refuses to run as root: there it is another user's, and so are the programs that
    /// start after it.
    void startWaylandSession();

    /// Starts a program of the session. The first word is its name.
    void launch(ChildProcess& process, std::vector<std::string> command) const;

    /// What is on that part of the display now.
    QImage picture(const QRect& area) const;

    /// @param button as X numbers them: 1 is the left one, 3 the right one
    void click(QPoint point, int button = 1) const;
    void movePointer(QPoint point) const;

    /// Types the keys as xdotool names them.
    void press(const QStringList& keys) const;
    void type(const char* text) const;

    /// Where the program's window is that was the last to get the keyboard; absent where that is
    /// another program's.
    static std::optional<QRect> activeWindow();

    /// One more client of the session's bus.
    QDBusConnection connectToBus() { return bus_->connect(); }

    /// What a program prints until it ends.
    static QByteArray run(const QString& program, const QStringList& arguments);

private:
    void handOver();
    /// Sends events to the display itself: the environment may name one inside of it.
    void sendEvents(const QStringList& words) const;

    QTemporaryDir directory_;
    std::map<QByteArray, std::optional<QByteArray>> environmentBefore_;
    VirtualDisplay display_;
    QByteArray displayName_ = qgetenv("DISPLAY");
    std::optional<PrivateBus> bus_;
    std::vector<std::string> userChange_;
    ChildProcess windowManager_;
    ChildProcess compositor_;
};

} // namespace test
