# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Plays the troubles that networks have, one after another, and shows what item and popover say."""

import time

from Desktop import picture
from Desktop.item import Item
from Desktop.processes import becomes, wait_for

OPEN = 1
PAIR_LIST = "/api/v3/exchangeInfo"
# The popover is drawn, and what is announced has come.
DRAWN_AFTER = 1.5
NOTICED_WITHIN = 25


class BadNetworks:
    """On a virtual desktop. `start_program` ends the program where it runs and starts it."""

    def __init__(self, folder, desktop, simulator, profile, start_program):
        self.folder = folder
        self.desktop = desktop
        self.simulator = simulator
        self.profile = profile
        self.start_program = start_program
        self.bus = desktop.connect()
        self.item = None

    def run(self):
        for number, trouble in enumerate((
                self.clock, self.mute, self.absent, self.list_missing, self.unknown_pair,
                self.too_many, self.restricted, self.dropped), 1):
            self.simulator.control("reset")
            self.simulator.control("walk", running=False)
            self.simulator.push("BTCUSDT", "65432.1", "1.2")
            print(f"\n{number}. {trouble.__doc__}")
            trouble()
            self.show(f"network-{number}.png")

    def start(self):
        self.start_program({"display.mode": "fixed"}, {})
        self.item = wait_for(lambda: next(iter(Item.listed(self.bus)), None), "the item", 20)

    def start_with_prices(self):
        self.start()
        wait_for(lambda: "%" in (self.item.text() or ""), "prices", 10)

    def wait_for_notice(self):
        wait_for(self.item.notice, "a word about it in the item", NOTICED_WITHIN)

    def show(self, file):
        """Prints what is told and takes a picture of it."""
        print(f"   item: {self.item.text()}")
        for line in filter(None, (self.item.notice() or "").split("\n")):
            print(f"         {line}")
        self.item.choose(OPEN)
        window = wait_for(lambda: self.desktop.active_window("Quorvel"), "the popover", 10)
        time.sleep(DRAWN_AFTER)
        for part in self.desktop.parts():
            if part.role in ("label", "list item") and part.name:
                told = f"  ({part.description})" if part.description.strip() else ""
                print(f"   popover: {' / '.join(part.name.splitlines())}{told}")
        picture.save_window(self.folder / file, window, self.desktop.environment)
        print(f"   Saved build/demo/{file}")
        self.desktop.press("Escape")

    def clock(self):
        """This machine's clock is ten minutes ahead of the exchange's: prices go on."""
        self.simulator.control("clock", offsetMs=-600_000)
        self.start_with_prices()
        self.simulator.push("BTCUSDT", "65500", "1.3")
        wait_for(lambda: "65,500" in self.item.text(), "the new price", 5)

    def mute(self):
        """The connection dies without a word, and the next does not come about."""
        self.start_with_prices()
        self.simulator.control("silence", silent=True)
        self.simulator.control("handshake", mode="hang")
        self.wait_for_notice()

    def absent(self):
        """There is no network at the start."""
        self.simulator.stop()
        self.start()
        self.wait_for_notice()
        self.simulator.start()
        self.simulator.control("walk", running=False)
        back = becomes(lambda: "%" in (self.item.text() or ""), 5)
        print(f"   It is back: prices {'came by themselves' if back else 'DID NOT COME'}.")

    def list_missing(self):
        """The list of pairs never comes: prices do not wait for it for ever."""
        self.simulator.control("rest", path=PAIR_LIST, hang=True)
        self.start()
        wait_for(lambda: "%" in (self.item.text() or ""), "prices", NOTICED_WITHIN)

    def unknown_pair(self):
        """One pair of the watchlist is not traded any more."""
        watched = self.profile.watched()
        self.profile.watch(*watched, "GONE")
        self.start_with_prices()
        self.profile.watch(*watched)

    def too_many(self):
        """The exchange asks for a pause of a quarter of an hour."""
        self.simulator.control("handshake", mode="refuse", status=429,
                               headers={"Retry-After": "900"})
        self.start()
        self.wait_for_notice()

    def restricted(self):
        """The exchange does not serve this place."""
        self.simulator.control("handshake", mode="refuse", status=451)
        self.start()
        self.wait_for_notice()

    def dropped(self):
        """The exchange drops every connection at once."""
        self.start_with_prices()
        self.simulator.control("handshake", mode="refuse", status=503)
        self.simulator.control("drop", how="abort")
        self.wait_for_notice()
