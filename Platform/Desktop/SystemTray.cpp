// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/SystemTray.h"

#include "Platform/DBus/ProcessName.h"
#include "Platform/Desktop/X11.h"

#include <QCoreApplication>

#include <utility>
#include <xcb/xcb.h>

namespace platform {

namespace {

/// Who owns the selection of that name is the tray.
constexpr auto selection = "_NET_SYSTEM_TRAY_S0";

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

SystemTray::SystemTray() {
    if (!x11::connection())
        return;
    // A new manager announces itself to those who listen to the root window.
    x11::listen(x11::rootWindow(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    QCoreApplication::instance()->installNativeEventFilter(this);
    findManager();
}

SystemTray::~SystemTray() {
    if (auto* const application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

bool SystemTray::nativeEventFilter(const QByteArray&, void* event, qintptr*) {
    const auto type = static_cast<const xcb_generic_event_t*>(event)->response_type & 0x7f;
    const auto& message = *static_cast<const xcb_client_message_event_t*>(event);
    const auto& end = *static_cast<const xcb_destroy_notify_event_t*>(event);
    const auto& change = *static_cast<const xcb_property_notify_event_t*>(event);
    const bool hasCome = type == XCB_CLIENT_MESSAGE && message.type == x11::atom("MANAGER") &&
                         message.data.data32[1] == x11::atom(selection);
    const bool hasGone = type == XCB_DESTROY_NOTIFY && manager_ && end.window == manager_;
    // Whoever listens may well end windows, which is not for now, in the middle of an event.
    if (hasCome || hasGone)
        QMetaObject::invokeMethod(this, &SystemTray::findManager, Qt::QueuedConnection);
    else if (type == XCB_PROPERTY_NOTIFY && manager_ && change.window == manager_)
        QMetaObject::invokeMethod(this, &SystemTray::changed, Qt::QueuedConnection);
    return false;
}

void SystemTray::findManager() {
    quint32 manager = x11::selectionOwner(selection);
    constexpr quint32 events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    // It may have gone since.
    if (manager && !x11::listen(manager, events))
        manager = 0;
    if (std::exchange(manager_, manager) != manager)
        Q_EMIT managerChanged();
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
