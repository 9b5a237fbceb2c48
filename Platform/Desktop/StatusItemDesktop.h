// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace platform {

/// What is known of the desktop as far as it bears on status items. Processes are called by what
/// the system calls them, which is their executable's name cut after 15 characters.
struct StatusItemDesktop {
    /// Whether the program's windows are on an X display, XWayland's included, where it can place
    /// them itself.
    bool isX11 = false;

    /// The desktop's names for itself, most specific first, e.g. `XFCE`; often empty.
    QStringList names;

    /// Whether there is a watcher on the bus with which status items register.
    bool hasWatcher = false;

    /// Whose watcher it is; empty where there is none or it is not known.
    QString watcherProcess;

    /// Whether a panel on the X display takes windows into its tray.
    bool hasTray = false;

    /// Whose tray it is; empty where there is none or it is not known.
    QString trayProcess;

    /// Whether that tray lies along the top or the bottom, and not along a side.
    bool isTrayHorizontal = true;

    bool operator==(const StatusItemDesktop&) const = default;
};

} // namespace platform
