// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/WindowManagers.h"

#include "Platform/Desktop/X11.h"

namespace platform {

bool leavesDocksInPlace() {
    if (!x11::connection())
        return true;
    // i3 and its kin give a dock a whole edge of the screen. What follows it on Wayland lays it out
    // like any window; those compositors have the name of the library that they stand on.
    const QByteArray name = x11::windowManager();
    return name != "i3" && name != "wlroots wm";
}

bool isPointerKnown() {
    return !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

} // namespace platform
