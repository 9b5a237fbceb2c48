# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Quorvel's status item as any panel knows it: as the watcher lists it, by its properties."""

import dbus
import dbus.bus

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"


def connect(environment):
    """One more client of the session's bus."""
    return dbus.bus.BusConnection(environment["DBUS_SESSION_BUS_ADDRESS"])


def has_owner(name, environment):
    """Whether a program on the session bus offers the service of this name."""
    bus = connect(environment)
    try:
        return bus.name_has_owner(name)
    finally:
        bus.close()


class Item:
    """The item at a bus name and path; or none."""

    def __init__(self, bus, name, path):
        self.bus = bus
        self.name = name
        self.path = path

    @classmethod
    def listed(cls, bus):
        """Every listed item of Quorvel's."""
        answer = cls(bus, WATCHER, "/StatusNotifierWatcher").read(
            "RegisteredStatusNotifierItems", WATCHER)
        split = (address.partition("/") for address in answer or [])
        items = [cls(bus, name, f"/{path}") for name, _, path in split]
        return [item for item in items if item.read("Id") == "quorvel"]

    @property
    def owner(self):
        """The unique name behind the item's; nothing when its program has ended."""
        try:
            return self.bus.get_name_owner(self.name)
        except dbus.DBusException:
            return None

    @property
    def process(self):
        """The number of its process."""
        return int(self.bus.call_blocking("org.freedesktop.DBus", "/", "org.freedesktop.DBus",
                                          "GetConnectionUnixProcessID", "s", (self.name,)))

    def label(self):
        """The label; nothing where the item carries none."""
        return self.read("XAyatanaLabel")

    def tooltip(self):
        """The tooltip's title."""
        found = self.read("ToolTip")
        return found and found[2]

    def notice(self):
        """What the tooltip tells below its title; empty where nothing is wrong."""
        found = self.read("ToolTip")
        return found and found[3]

    def text(self):
        """The status text; where an item carries no label, the tooltip's title says the same."""
        return self.label() or self.tooltip()

    def menu(self, method, signature, *arguments):
        """Calls its menu."""
        return self.bus.call_blocking(self.name, self.read("Menu"), "com.canonical.dbusmenu",
                                      method, signature, arguments)

    def choose(self, entry):
        """Chooses an entry of the menu by its number."""
        self.menu("Event", "isvu", entry, "clicked", dbus.String("", variant_level=1), 0)

    def read(self, name, interface=ITEM):
        """A property; nothing where the object does not have it."""
        try:
            return self.bus.call_blocking(
                self.name, self.path, "org.freedesktop.DBus.Properties", "Get", "ss",
                (interface, name), timeout=2)
        except dbus.DBusException:
            return None
