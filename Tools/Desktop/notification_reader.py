# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Prints each notification of Quorvel's once the notification daemon has taken it, one line each.

Runs as a process of its own, beside whatever daemon the session has, and sees what reaches the
daemon and what the daemon answers.
"""

import sys
from datetime import datetime
from html import unescape

import dbus
import dbus.lowlevel
import dbus.mainloop.glib
from gi.repository import GLib

SERVICE = "org.freedesktop.Notifications"
RULES = [
    f"type='method_call',interface='{SERVICE}',member='Notify'",
    f"type='method_return',sender='{SERVICE}'",
]


class Listener:
    """Keeps each call until the daemon has answered it with the notification's number."""

    def __init__(self):
        self.waiting = {}

    def see(self, _, message):
        if isinstance(message, dbus.lowlevel.MethodCallMessage):
            if message.get_member() == "Notify":
                self.waiting[message.get_sender(), message.get_serial()] = message.get_args_list()
        elif isinstance(message, dbus.lowlevel.MethodReturnMessage):
            call = self.waiting.pop((message.get_destination(), message.get_reply_serial()), None)
            if call and call[0] == "Quorvel":
                self.tell(title=call[3], body=call[4])
        # A monitor that lets its library answer what it sees is thrown off the bus.
        return dbus.lowlevel.HANDLER_RESULT_HANDLED

    @staticmethod
    def tell(title, body):
        print(f"{datetime.now():%H:%M:%S}  Notification: {title} | {unescape(body)}", flush=True)


if __name__ == "__main__":
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    bus.add_message_filter(Listener().see)
    bus.call_blocking("org.freedesktop.DBus", "/org/freedesktop/DBus",
                      "org.freedesktop.DBus.Monitoring", "BecomeMonitor", "asu", (RULES, 0))
    print("listening", file=sys.stderr, flush=True)
    GLib.MainLoop().run()
