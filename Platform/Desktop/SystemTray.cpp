// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/SystemTray.h"

#include "Platform/DBus/ProcessName.h"
#include "Platform/Desktop/X11.h"

#include <xcb/xcb.h>

namespace platform {

namespace {

/// How many bits a pixel of a visual has; 0 for a visual that the display does not have.
int depthOf(quint32 visual) {
    const auto* const screen = xcb_setup_roots_iterator(xcb_get_setup(x11::connection())).data;
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem != 0;
         xcb_depth_next(&depth)) {
        for (auto one = xcb_depth_visuals_iterator(depth.data); one.rem != 0;
             xcb_visualtype_next(&one)) {
            if (one.data->visual_id == visual)
                return depth.data->depth;
        }
    }
    return 0;
}

} // namespace

SystemTray::SystemTray(QObject* parent) : QObject(parent), selection_("_NET_SYSTEM_TRAY_S0") {
    connect(&selection_, &X11Selection::ownerChanged, this, &SystemTray::managerChanged);
    connect(&selection_, &X11Selection::propertyChanged, this, &SystemTray::changed);
}

QString SystemTray::process() const {
    if (!manager())
        return {};
    const auto values = x11::property(manager(), "_NET_WM_PID");
    return values.empty() ? QString() : processName(static_cast<qint64>(values.front()));
}

bool SystemTray::isHorizontal() const {
    if (!manager())
        return true;
    const auto values = x11::property(manager(), "_NET_SYSTEM_TRAY_ORIENTATION");
    return values.empty() || values.front() == 0;
}

bool SystemTray::isTranslucent() const {
    if (!manager())
        return false;
    const auto values = x11::property(manager(), "_NET_SYSTEM_TRAY_VISUAL");
    return !values.empty() && depthOf(values.front()) == 32;
}

std::optional<QColor> SystemTray::textColor() const {
    if (!manager())
        return std::nullopt;
    // Four colours of 16 bits a part, of which the first is that of ordinary text.
    const auto values = x11::property(manager(), "_NET_SYSTEM_TRAY_COLORS");
    if (values.size() < 3)
        return std::nullopt;
    const auto part = [&values](std::size_t index) {
        return static_cast<quint16>(values[index] & 0xffff);
    };
    return QColor::fromRgba64(part(0), part(1), part(2));
}

void SystemTray::dock(quint32 window) const {
    constexpr quint32 requestDock = 0;
    x11::sendMessage(manager(), manager(), "_NET_SYSTEM_TRAY_OPCODE",
                     {XCB_CURRENT_TIME, requestDock, window, 0, 0});
}

} // namespace platform
