// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusWindows/DockWindow.h"

#include "Platform/Appearance/SystemAppearance.h"
#include "Platform/Desktop/DevicePixels.h"
#include "Platform/Desktop/SystemTray.h"
#include "Platform/Desktop/X11.h"

#include <QPainter>

#include <xcb/xcb.h>

namespace platform {

namespace {

constexpr QMargins inset(4, 0, 4, 0);

// Not for a window manager, should the tray go and leave the window behind.
constexpr auto flags = Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint |
                       Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint;

} // namespace

DockWindow::DockWindow(const StatusItemIdentity& identity, StatusItemEvents& events,
                       const SystemTray& tray, const SystemAppearance& appearance)
    : StatusItemView(identity, events, flags, inset), tray_(tray), appearance_(appearance) {
    connect(&tray, &SystemTray::managerChanged, this, &DockWindow::dock);
    connect(&tray, &SystemTray::changed, this, qOverload<>(&QWidget::update));
}

void DockWindow::setContent(const StatusItemContent& content) {
    const bool isFirst = !hasContent();
    StatusItemView::setContent(content);
    if (isFirst)
        dock();
}

void DockWindow::dock() {
    // The window on the display went with its tray, and is of one kind for life.
    hide();
    destroy();
    if (!hasContent() || !tray_.manager())
        return;
    setAttribute(Qt::WA_TranslucentBackground, tray_.isTranslucent());
    createWinId();
    setEmbedInfo(false); // the toolkit maps it, not the tray
    tray_.dock(static_cast<quint32>(winId()));
}

std::optional<QRect> DockWindow::frame() const {
    if (!isVisible())
        return std::nullopt;
    // The toolkit does not hear of it when the tray moves together with what is in it.
    const auto position = x11::positionOf(static_cast<quint32>(winId()));
    const auto corner = position ? fromDevicePixels(*position) : std::nullopt;
    return corner ? std::optional(QRect(*corner, size())) : std::nullopt;
}

bool DockWindow::nativeEvent(const QByteArray&, void* event, qintptr*) {
    const auto& message = *static_cast<const xcb_client_message_event_t*>(event);
    constexpr quint32 embeddedNotify = 0;
    if ((message.response_type & 0x7f) == XCB_CLIENT_MESSAGE &&
        message.type == x11::atom("_XEMBED") && message.data.data32[1] == embeddedNotify) {
        // Not before, since it would stand on the bare screen.
        QMetaObject::invokeMethod(this, &DockWindow::appear, Qt::QueuedConnection);
    }
    return false;
}

void DockWindow::appear() {
    show();
    setEmbedInfo(true);
}

void DockWindow::setEmbedInfo(bool isMapped) {
    constexpr quint32 version = 0;
    x11::setProperty(static_cast<quint32>(winId()), "_XEMBED_INFO", "_XEMBED_INFO",
                     {version, isMapped ? 1U : 0U});
}

void DockWindow::takeRoom(QSize size) {
    // The tray chooses the size, and goes by the least one to do so.
    setMinimumSize(size);
    resize(size);
}

StatusItemColors DockWindow::colors() const {
    if (const auto text = tray_.textColor())
        return StatusItemColors::with(*text);
    return StatusItemColors::on(appearance_.preferred().value_or(Appearance::dark));
}

void DockWindow::paintGround(QPainter& painter) {
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const bool isDark = colors().appearance == Appearance::dark;
    // What cannot shine through is at least told from the text.
    const QColor opaque = isDark ? QColor(36, 36, 40) : QColor(251, 251, 252);
    painter.fillRect(rect(), testAttribute(Qt::WA_TranslucentBackground) ? QColor(Qt::transparent)
                                                                         : opaque);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

} // namespace platform
