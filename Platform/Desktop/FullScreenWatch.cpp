// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/FullScreenWatch.h"

#include "Platform/Desktop/DevicePixels.h"
#include "Platform/Desktop/X11.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <tuple>
#include <xcb/xcb.h>

namespace platform {

FullScreenWatch::FullScreenWatch(QObject* parent) : QObject(parent) {
    if (!x11::connection())
        return;
    x11::listen(x11::rootWindow(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    QCoreApplication::instance()->installNativeEventFilter(this);
    refresh();
}

FullScreenWatch::~FullScreenWatch() {
    if (auto* const application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

bool FullScreenWatch::covers(QPoint point) const {
    const auto corner = isFull_ ? fromDevicePixels(corner_) : std::nullopt;
    return corner && QGuiApplication::screenAt(*corner) == QGuiApplication::screenAt(point);
}

bool FullScreenWatch::nativeEventFilter(const QByteArray&, void* event, qintptr*) {
    const auto& change = *static_cast<const xcb_property_notify_event_t*>(event);
    if ((change.response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
        return false;
    const bool isOther =
        change.window == x11::rootWindow() && change.atom == x11::atom("_NET_ACTIVE_WINDOW");
    const bool isSame = change.window == active_ && change.atom == x11::atom("_NET_WM_STATE");
    if (isOther || isSame)
        QMetaObject::invokeMethod(this, &FullScreenWatch::refresh, Qt::QueuedConnection);
    return false;
}

void FullScreenWatch::refresh() {
    const auto before = std::tuple(isFull_, corner_);
    const auto values = x11::property(x11::rootWindow(), "_NET_ACTIVE_WINDOW");
    const quint32 active = values.empty() ? 0 : values.front();
    if (active && active != active_)
        x11::listen(active, XCB_EVENT_MASK_PROPERTY_CHANGE);
    active_ = active;
    isFull_ = false;
    if (active_) {
        const auto states = x11::property(active_, "_NET_WM_STATE");
        isFull_ = std::ranges::find(states, x11::atom("_NET_WM_STATE_FULLSCREEN")) != states.end();
        corner_ = x11::positionOf(active_).value_or(QPoint());
    }
    if (before != std::tuple(isFull_, corner_))
        Q_EMIT changed();
}

} // namespace platform
