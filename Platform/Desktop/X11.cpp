// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Desktop/X11.h"

#include <QGuiApplication>
#include <QHash>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <xcb/xcb.h>

namespace platform::x11 {

namespace {

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
    return {reply, &std::free};
}

auto propertyReply(quint32 window, const char* name) {
    constexpr quint32 longest = 1024; // values of 32 bits
    return owned(xcb_get_property_reply(connection(),
                                        xcb_get_property(connection(), 0, window, atom(name),
                                                         XCB_GET_PROPERTY_TYPE_ANY, 0, longest),
                                        nullptr));
}

} // namespace

xcb_connection_t* connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Not every platform that has this interface has a connection behind it.
    return x11 ? x11->connection() : nullptr;
}

quint32 rootWindow() {
    // X screens besides the first have died out.
    return xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
}

quint32 atom(const char* name) {
    static QHash<QByteArray, quint32> known;
    quint32& number = known[name];
    if (number == XCB_ATOM_NONE) {
        const auto length = static_cast<quint16>(std::strlen(name));
        const auto reply = owned(xcb_intern_atom_reply(
            connection(), xcb_intern_atom(connection(), 0, length, name), nullptr));
        number = reply ? reply->atom : XCB_ATOM_NONE;
    }
    return number;
}

quint32 selectionOwner(const char* name) {
    const auto reply = owned(xcb_get_selection_owner_reply(
        connection(), xcb_get_selection_owner(connection(), atom(name)), nullptr));
    return reply ? reply->owner : XCB_WINDOW_NONE;
}

std::vector<quint32> property(quint32 window, const char* name) {
    const auto reply = propertyReply(window, name);
    if (!reply || reply->format != 32)
        return {};
    const std::span values(static_cast<const quint32*>(xcb_get_property_value(reply.get())),
                           reply->value_len);
    return {values.begin(), values.end()};
}

QByteArray windowManager() {
    const auto check = property(rootWindow(), "_NET_SUPPORTING_WM_CHECK");
    const auto reply = check.empty() ? owned<xcb_get_property_reply_t>(nullptr)
                                     : propertyReply(check.front(), "_NET_WM_NAME");
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<qsizetype>(reply->value_len)};
}

void setProperty(quint32 window, const char* name, const char* type,
                 const std::vector<quint32>& values) {
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, atom(name), atom(type), 32,
                        static_cast<quint32>(values.size()), values.data());
}

void keepOutOfLists(quint32 window) {
    setProperty(window, "_NET_WM_STATE", "ATOM",
                {atom("_NET_WM_STATE_SKIP_TASKBAR"), atom("_NET_WM_STATE_SKIP_PAGER")});
}

std::optional<QPoint> positionOf(quint32 window) {
    const auto reply = owned(xcb_translate_coordinates_reply(
        connection(), xcb_translate_coordinates(connection(), window, rootWindow(), 0, 0),
        nullptr));
    return reply ? std::optional(QPoint(reply->dst_x, reply->dst_y)) : std::nullopt;
}

bool listen(quint32 window, quint32 eventMask) {
    const auto attributes = owned(xcb_get_window_attributes_reply(
        connection(), xcb_get_window_attributes(connection(), window), nullptr));
    if (!attributes)
        return false;
    const quint32 mask = attributes->your_event_mask | eventMask;
    const auto error =
        owned(xcb_request_check(connection(), xcb_change_window_attributes_checked(
                                                  connection(), window, XCB_CW_EVENT_MASK, &mask)));
    return !error;
}

void sendMessage(quint32 target, quint32 window, const char* type, const quint32 (&data)[5],
                 quint32 eventMask) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(type);
    std::ranges::copy(data, message.data.data32);
    xcb_send_event(connection(), 0, target, eventMask, reinterpret_cast<const char*>(&message));
    xcb_flush(connection());
}

} // namespace platform::x11
