#include "Platform/Desktop/Compositing.h"

#include <QByteArray>
#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace platform {

namespace {

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
    return {reply, &std::free};
}

/// A compositor owns the selection of that name while it runs.
bool hasCompositor(xcb_connection_t* connection) {
    constexpr char name[] = "_NET_WM_CM_S0"; // X screens besides the first have died out
    const auto atom = owned(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, sizeof name - 1, name), nullptr));
    if (!atom)
        return false;
    const auto owner = owned(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace

bool isDisplayComposited() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Not every platform that has this interface has a connection behind it.
    xcb_connection_t* const connection = x11 ? x11->connection() : nullptr;
    return !connection || hasCompositor(connection);
}

} // namespace platform
