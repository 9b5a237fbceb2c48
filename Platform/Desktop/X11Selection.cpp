// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/X11Selection.h"

#include "Platform/Desktop/X11.h"

#include <QCoreApplication>

#include <utility>
#include <xcb/xcb.h>

namespace platform {

X11Selection::X11Selection(const char* name, QObject* parent) : QObject(parent), name_(name) {
    if (!x11::connection())
        return;
    // A new manager announces itself to those who listen to the root window.
    x11::listen(x11::rootWindow(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    QCoreApplication::instance()->installNativeEventFilter(this);
    refresh();
}

X11Selection::~X11Selection() {
    if (auto* const application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

bool X11Selection::nativeEventFilter(const QByteArray&, void* event, qintptr*) {
    switch (static_cast<const xcb_generic_event_t*>(event)->response_type & 0x7f) {
    case XCB_CLIENT_MESSAGE: {
        const auto& message = *static_cast<const xcb_client_message_event_t*>(event);
        if (message.type == x11::atom("MANAGER") && message.data.data32[1] == x11::atom(name_))
            refreshSoon();
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (owner_ && static_cast<const xcb_destroy_notify_event_t*>(event)->window == owner_)
            refreshSoon();
        break;
    case XCB_PROPERTY_NOTIFY:
        if (owner_ && static_cast<const xcb_property_notify_event_t*>(event)->window == owner_)
            QMetaObject::invokeMethod(this, &X11Selection::propertyChanged, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return false;
}

void X11Selection::refreshSoon() {
    // Whoever listens may well end windows, which is not for now, in the middle of an event.
    QMetaObject::invokeMethod(this, &X11Selection::refresh, Qt::QueuedConnection);
}

void X11Selection::refresh() {
    quint32 owner = x11::selectionOwner(name_);
    constexpr quint32 events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    // It may have gone since.
    if (owner && !x11::listen(owner, events))
        owner = 0;
    if (std::exchange(owner_, owner) != owner)
        Q_EMIT ownerChanged();
}

} // namespace platform
