# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Prints the status text of Quorvel's item whenever it changes, one line each.

Runs as a process of its own and knows only what any panel knows: the item as the watcher lists it.
"""

from datetime import datetime

import dbus
import dbus.mainloop.glib
from gi.repository import GLib

BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")
WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
CHANGE_SIGNALS = ("XAyatanaNewLabel", "NewToolTip", "NewStatus")

# Not every watcher announces what it lists, so the list is asked for while there is no item.
LOOK_EVERY_MILLISECONDS = 250


class Reader:
    """Looks for the item, follows its change signals and prints each new text."""

    def __init__(self, bus):
        self.bus = bus
        self.item = None
        self.text = None
        GLib.timeout_add(LOOK_EVERY_MILLISECONDS, self.look)
        for signal in CHANGE_SIGNALS:
            bus.add_signal_receiver(
                self.changed, signal, ITEM, sender_keyword="sender", path_keyword="path")

    def look(self):
        """Takes the listed item whose identity is Quorvel's, unless it is known and alive."""
        if not self.owner():
            for address in self.read(WATCHER, "/StatusNotifierWatcher", WATCHER,
                                     "RegisteredStatusNotifierItems") or []:
                name, _, path = address.partition("/")
                if self.read(name, f"/{path}", ITEM, "Id") == "quorvel":
                    self.item = (name, f"/{path}")
                    self.show()
        return GLib.SOURCE_CONTINUE

    def changed(self, *_, sender, path):
        if self.item and path == self.item[1] and sender == self.owner():
            self.show()

    def owner(self):
        """The unique name behind the item's; nothing when there is no item or its program ended."""
        return self.item and self.call(*BUS, "GetNameOwner", self.item[0])

    def show(self):
        """Prints the text, unless it is what was printed last."""
        text = self.status_text()
        if text is not None and text != self.text:
            self.text = text
            print(f"{datetime.now():%H:%M:%S}  {text}", flush=True)

    def status_text(self):
        """The label; where an item carries none, the tooltip's title says the same."""
        label = self.read(*self.item, ITEM, "XAyatanaLabel")
        if label:
            return label
        tooltip = self.read(*self.item, ITEM, "ToolTip")
        return tooltip and tooltip[2]

    def read(self, name, path, interface, prop):
        """A property; nothing when the object does not have it."""
        return self.call(name, path, "org.freedesktop.DBus.Properties", "Get", interface, prop)

    def call(self, name, path, interface, method, *arguments):
        try:
            return self.bus.call_blocking(
                name, path, interface, method, "s" * len(arguments), arguments, timeout=2)
        except dbus.DBusException:
            return None


if __name__ == "__main__":
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    reader = Reader(dbus.SessionBus())
    GLib.MainLoop().run()
