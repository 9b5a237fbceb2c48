# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Prints the status text of Quorvel's item whenever it changes, one line each.

Runs as a process of its own and knows only what any panel knows.
"""

from datetime import datetime

import dbus
import dbus.mainloop.glib
from gi.repository import GLib

from .item import ITEM, Item

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
        """Takes the listed item, unless it is known and alive."""
        if not (self.item and self.item.owner):
            for self.item in Item.listed(self.bus)[:1]:
                self.show()
        return GLib.SOURCE_CONTINUE

    def changed(self, *_, sender, path):
        if self.item and path == self.item.path and sender == self.item.owner:
            self.show()

    def show(self):
        """Prints the text, unless it is what was printed last."""
        text = self.item.text()
        if text is not None and text != self.text:
            self.text = text
            print(f"{datetime.now():%H:%M:%S}  {text}", flush=True)


if __name__ == "__main__":
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    reader = Reader(dbus.SessionBus())
    GLib.MainLoop().run()
