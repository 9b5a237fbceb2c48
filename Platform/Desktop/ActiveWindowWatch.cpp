// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/ActiveWindowWatch.h"

#include "Platform/Desktop/DevicePixels.h"
#include "Platform/Desktop/X11.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <utility>
#include <xcb/xcb.h>

namespace platform {

ActiveWindowWatch::ActiveWindowWatch(QObject* parent) : QObject(parent) {
    if (!x11::connection())
        return;
    x11::listen(x11::rootWindow(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    QCoreApplication::instance()->installNativeEventFilter(this);
    refresh();
}

ActiveWindowWatch::~ActiveWindowWatch() {
    if (auto* const application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

bool ActiveWindowWatch::isOnScreenOf(QPoint point) const {
    const auto corner = fromDevicePixels(extent_.corner);
    return corner && QGuiApplication::screenAt(*corner) == QGuiApplication::screenAt(point);
}

bool ActiveWindowWatch::fills(QPoint point) const {
    return extent_.isFull && isOnScreenOf(point);
}

bool ActiveWindowWatch::isMaximized(QPoint point) const {
    return extent_.isMaximized && isOnScreenOf(point);
}

bool ActiveWindowWatch::nativeEventFilter(const QByteArray&, void* event, qintptr*) {
    const auto& change = *static_cast<const xcb_property_notify_event_t*>(event);
    if ((change.response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
        return false;
    const bool isOther =
        change.window == x11::rootWindow() && change.atom == x11::atom("_NET_ACTIVE_WINDOW");
    const bool isSame = change.window == active_ && change.atom == x11::atom("_NET_WM_STATE");
    if (isOther || isSame)
        QMetaObject::invokeMethod(this, &ActiveWindowWatch::refresh, Qt::QueuedConnection);
    return false;
}

ActiveWindowWatch::Extent ActiveWindowWatch::extentOf(quint32 window) {
    const auto states = x11::property(window, "_NET_WM_STATE");
    const auto has = [&states](const char* state) {
        return std::ranges::find(states, x11::atom(state)) != states.end();
    };
    return {.isFull = has("_NET_WM_STATE_FULLSCREEN"),
            .isMaximized =
                has("_NET_WM_STATE_MAXIMIZED_VERT") && has("_NET_WM_STATE_MAXIMIZED_HORZ"),
            .corner = x11::positionOf(window).value_or(QPoint())};
}

void ActiveWindowWatch::refresh() {
    const auto values = x11::property(x11::rootWindow(), "_NET_ACTIVE_WINDOW");
    const quint32 active = values.empty() ? 0 : values.front();
    if (active && active != active_)
        x11::listen(active, XCB_EVENT_MASK_PROPERTY_CHANGE);
    active_ = active;
    const Extent extent = active_ ? extentOf(active_) : Extent();
    if (std::exchange(extent_, extent) != extent)
        Q_EMIT changed();
}

} // namespace platform
