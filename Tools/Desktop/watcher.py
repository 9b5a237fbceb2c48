# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The list of status items that a panel would keep, for a session that has none."""

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

from .item import WATCHER


class Watcher(dbus.service.Object):
    """Lists an item until its program has gone."""

    def __init__(self, bus):
        self.items = []
        super().__init__(bus, "/StatusNotifierWatcher")
        bus.add_signal_receiver(self.owner_changed, "NameOwnerChanged", "org.freedesktop.DBus")

    def owner_changed(self, name, _, owner):
        if not owner:
            self.items = [item for item in self.items if item.partition("/")[0] != name]

    @dbus.service.method(WATCHER, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, address, sender):
        self.items.append(
            sender + address if address.startswith("/") else f"{address}/StatusNotifierItem")

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
    def Get(self, _, name):
        return {
            "IsStatusNotifierHostRegistered": True,
            "ProtocolVersion": 0,
            "RegisteredStatusNotifierItems": dbus.Array(self.items, "s"),
        }[name]


if __name__ == "__main__":
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    session = dbus.SessionBus()
    watcher = Watcher(session)
    session.request_name(WATCHER)
    GLib.MainLoop().run()
