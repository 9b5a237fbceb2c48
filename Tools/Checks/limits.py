# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Uses the program for some minutes as hard as a person can, on an exchange that refuses, drops and
asks for pauses, and compares what the exchange has counted with what it allows."""

import argparse
import itertools
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).absolute().parents[2]
sys.path.insert(0, str(ROOT / "Tools"))

from Desktop.desktop import Desktop  # noqa: E402
from Desktop.item import Item  # noqa: E402
from Desktop.processes import Failure, wait_for  # noqa: E402
from Desktop.profile import Profile  # noqa: E402
from Desktop.simulator import Simulator  # noqa: E402

OPEN = 1
WATCHED = 300
LISTED = 330
MOST = 0.9
LOGIN = ("org.freedesktop.login1", "/org/freedesktop/login1")


class User:
    """Who edits the watchlist in the popover, without a pause."""

    def __init__(self, desktop, item):
        self.desktop = desktop
        self.item = item
        self.spare = itertools.cycle(range(WATCHED, LISTED))

    def edit(self, count):
        self.item.choose(OPEN)
        wait_for(lambda: self.desktop.active_window("Quorvel"), "the popover", 10)
        for _ in range(count):
            self.desktop.type(f"C{next(self.spare)}X")
            self.desktop.press("Return")
        self.desktop.press("Down")
        for _ in range(count):
            self.desktop.press("Delete")
        self.desktop.press("Escape")


class Troubles:
    """What the exchange and the machine do meanwhile, each for some seconds."""

    def __init__(self, simulator, bus):
        self.simulator = simulator
        self.bus = bus

    def run(self, name):
        print(f"{time.strftime('%H:%M:%S')} {name}")
        getattr(self, name)()
        self.simulator.control("handshake", mode="accept")
        time.sleep(8)

    def calm(self):
        """Nothing."""

    def dropping(self):
        for _ in range(10):
            self.simulator.control("drop", how="abort")
            time.sleep(2)

    def refusing(self):
        self.simulator.control("handshake", mode="refuse", status=503)
        self.simulator.control("drop", how="close")
        time.sleep(40)

    def pausing(self):
        self.simulator.control("rest", path="/api/v3/ticker/24hr", status=429, count=1,
                               headers={"Retry-After": "10"})
        self.simulator.control("drop", how="eof")
        time.sleep(12)

    def sleeping(self):
        for _ in range(3):
            for asleep in (True, False):
                self.bus.call_blocking(
                    *LOGIN, "org.freedesktop.DBus.Mock", "EmitSignal", "sssav",
                    ("org.freedesktop.login1.Manager", "PrepareForSleep", "b", [asleep]))
                time.sleep(3)


def run(minutes, build, folder):
    desktop = Desktop(folder)
    try:
        desktop.start_display()
        desktop.start_bus()
        desktop.start_tool("watcher")
        desktop.start("window-manager", ["openbox", "--sm-disable"])
        desktop.start("login-manager", [
            "/usr/bin/python3", "-m", "dbusmock", "--session", "--template", "logind"])
        names = ",".join(f"C{number}XUSDT" for number in range(LISTED))
        simulator = Simulator(desktop.processes, build, desktop.environment, "--pairs", names)
        profile = Profile(folder / "profile")
        profile.use_exchange(simulator)
        profile.watch(*(f"C{number}X" for number in range(WATCHED)))
        desktop.processes.start("quorvel", [build / "Quorvel/quorvel"],
                                profile.environment(desktop.environment))
        bus = desktop.connect()
        item = wait_for(lambda: next(iter(Item.listed(bus)), None), "the item", 20)
        wait_for(lambda: simulator.connection_count() == 1, "the stream", 20)
        user, troubles = User(desktop, item), Troubles(simulator, bus)
        end = time.monotonic() + 60 * minutes
        for name in itertools.cycle(("calm", "dropping", "refusing", "pausing", "sleeping")):
            if time.monotonic() >= end:
                break
            user.edit(20)
            troubles.run(name)
            desktop.processes.check()
        return judge(simulator)
    finally:
        desktop.end()


def judge(simulator):
    """Whether everything stayed well below the limits; prints by how much."""
    state = simulator.control("state")
    counted = (("weight of a minute", state["rest"]["mostWeight"], "weightPerMinute"),
               ("connection attempts in five minutes", state["mostAttempts"],
                "connectionAttempts"),
               ("messages in a second", state["mostMessages"], "messagesPerSecond"))
    is_kept = not simulator.details("cutOff")
    for name, most, limit in counted:
        allowed = state["limits"][limit]
        print(f"{name}: {most} of {allowed}")
        is_kept = is_kept and 0 < most <= MOST * allowed
    return is_kept


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--minutes", type=float, default=10)
    parser.add_argument("--build", type=Path, default=ROOT / "build/debug")
    options = parser.parse_args()
    try:
        with tempfile.TemporaryDirectory(prefix="quorvel-") as folder:
            is_kept = run(options.minutes, options.build, Path(folder))
    except Failure as failure:
        sys.exit(f"limits: {failure}")
    if not is_kept:
        sys.exit("limits: not kept")
    print("limits: kept")


if __name__ == "__main__":
    main()
