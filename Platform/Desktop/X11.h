// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QPoint>

#include <optional>
#include <vector>

struct xcb_connection_t;

namespace platform::x11 {

/// The connection that Qt has to the X display; null where the program's windows are on none.
xcb_connection_t* connection();

/// The window behind all others. There must be a connection; so for all that follows.
quint32 rootWindow();

/// The number that stands for a name on this display. Waits for the display once for each name.
quint32 atom(const char* name);

/// The window that owns the selection of that name; 0 where there is none.
quint32 selectionOwner(const char* name);

/// The 32-bit values of a property; empty where the window has none of that name, or has gone.
std::vector<quint32> property(quint32 window, const char* name);

/// What the window manager calls itself, e.g. `Openbox`; empty where there is none, or it does not
/// tell.
QByteArray windowManager();

/// Sets a property whose values are of the type of that name.
void setProperty(quint32 window, const char* name, const char* type,
                 const std::vector<quint32>& values);

/// Keeps a window that has not been shown yet out of taskbars, pagers and switchers.
void keepOutOfLists(quint32 window);

/// Where a window is on the display, in its pixels; absent where the window has gone.
std::optional<QPoint> positionOf(quint32 window);

/// Asks for more kinds of events about a window, besides those that Qt asked for. Whether there is
/// such a window.
bool listen(quint32 window, quint32 eventMask);

/// Sends a client message of five values. @param eventMask whom of the target's listeners it is for
void sendMessage(quint32 target, quint32 window, const char* type, const quint32 (&data)[5],
                 quint32 eventMask = 0);

} // namespace platform::x11
