# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Shows Quorvel in a panel against the exchange simulator, and judges what the panel was given."""

import argparse
import os
import re
import select
import shutil
import signal
import sys
import threading
import time
from decimal import Decimal
from pathlib import Path

ROOT = Path(__file__).absolute().parents[2]
sys.path.insert(0, str(ROOT / "Tools"))

from Desktop import desktop, panels, picture  # noqa: E402
from Desktop.desktop import Desktop  # noqa: E402
from Desktop.processes import Failure, Processes  # noqa: E402
from Desktop.profile import Profile  # noqa: E402
from Desktop.simulator import Simulator  # noqa: E402
from network import BadNetworks  # noqa: E402
from tour import Tour  # noqa: E402

FOLDER = ROOT / "build" / "demo"
RELEASE = ROOT / "build" / "release"
SCREEN = (1920, 1200)

PINNED = ["BTC", "ETH", "SOL"]
OTHERS = ["BNB", "XRP", "DOGE"]
# Few enough to read at a glance, and each of them moves every second.
SHOWN_AT_ONCE = 2
# How far from the first price, or change, a price has to walk for an alert; it takes seconds.
PRICE_STEP = Decimal("0.0002")
CHANGE_STEP = Decimal("0.02")

NOTIFICATION = "Notification: "
# The picture shows the first two together, once the daemon has drawn them.
PICTURED = 2
DRAWN_AFTER = 0.7
# Prices walk across a threshold near by sooner than this, in all likelihood.
ALERTS_FIRE_WITHIN = 30
# Opening every window in every look, and how long a busy machine may take longer.
TOUR_TAKES = 35
TOUR_GRACE = 60

PRICED = re.compile(rf"\b({'|'.join(PINNED + OTHERS)}) -?\d[\d,]*\.\d")


def main():
    options = arguments()
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, signal.default_int_handler)
    for name in ("panel.png", "screen.png", "notification.png", *Tour.pictures()):
        (FOLDER / name).unlink(missing_ok=True)
    shutil.rmtree(FOLDER / "desktop", ignore_errors=True)
    (FOLDER / "desktop").mkdir(parents=True)
    processes = None
    try:
        if options.desktop == "virtual" or options.network == "bad":
            print("There is no desktop here: starting a virtual one with a panel.")
            virtual = Desktop(FOLDER / "desktop")
            processes = virtual.processes
            prepare(virtual)
        else:
            virtual = None
            processes = Processes(FOLDER / "desktop/log")
        run(options, virtual, processes)
        return 0
    except Failure as failure:
        print(f"The demo failed: {failure}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        print("The demo was stopped before it had shown anything.", file=sys.stderr)
        return 1
    finally:
        signal.signal(signal.SIGINT, signal.SIG_IGN)
        signal.signal(signal.SIGTERM, signal.SIG_IGN)
        if processes:
            processes.end()


def arguments():
    parser = argparse.ArgumentParser(prog="./dev demo")
    parser.add_argument("--seconds", type=float, help="end by itself after this time")
    parser.add_argument("--network", choices=["good", "bad"], default="good",
                        help="bad: play what goes wrong on networks, on a virtual desktop")
    parser.add_argument(
        "--desktop", choices=["session", "virtual"], default="virtual", help=argparse.SUPPRESS)
    return parser.parse_args()


def prepare(virtual):
    """A display with the panel that shows labels, and a notification daemon."""
    virtual.start_display(*SCREEN)
    virtual.start_session(panels.MATE)
    virtual.start_accessibility()
    virtual.start_panel()
    virtual.start_daemon()


def run(options, virtual, processes):
    environment = virtual.environment if virtual else desktop.own_session()
    simulator = Simulator(processes, RELEASE, environment, "--seed", "20")
    profile = Profile(FOLDER / "profile")
    fill(profile, simulator)
    source, sink = os.pipe()
    for module in ("item_reader", "notification_reader"):
        processes.start(module, [*desktop.PYTHON, f"Desktop.{module}"],
                        environment | {"PYTHONPATH": desktop.TOOLS}, stdout=sink)

    running = []
    prepared = dict(profile.preferences)

    def start_program(preferences, variables):
        while running:
            processes.stop(running.pop())
        profile.preferences = dict(prepared)
        profile.prefer(preferences)
        running.append(processes.start("quorvel", [RELEASE / "Quorvel/quorvel"],
                                       profile.environment(environment) | variables))

    if options.network == "bad":
        BadNetworks(FOLDER, virtual, simulator, profile, start_program).run()
        return
    show = Show(source, environment)
    end = time.monotonic() + options.seconds if options.seconds else float("inf")
    print("The status text as the panel gets it, and notifications as the daemon takes them"
          + ("" if options.seconds else ", until Ctrl-C") + ":")
    try:
        if virtual and (options.seconds or TOUR_TAKES) >= TOUR_TAKES:
            Tour(FOLDER, virtual, start_program, end + TOUR_GRACE).run()
        else:
            start_program({}, {})
            print("Pictures of the windows are taken on a virtual desktop only, and take"
                  f" {TOUR_TAKES} seconds.")
        while time.monotonic() < end and not show.failure:
            processes.check()
            time.sleep(0.25)
    except KeyboardInterrupt:
        print()
    show.end()
    print(f"Saved {picture.save_panel(FOLDER, environment).relative_to(ROOT)}")
    show.judge(options.seconds)


def fill(profile, simulator):
    """Preferences that lead to the simulator, a watchlist, and alerts that soon fire: one above and
    one below the present values of each pair."""
    profile.use_exchange(simulator)
    profile.prefer({"display.mode": "sideBySide", "display.sideBySideLimit": SHOWN_AT_ONCE})
    profile.watch(*(f"{base}*" for base in PINNED), *OTHERS)
    rules = []
    for base in PINNED:
        ticker = simulator.fetch(f"/api/v3/ticker/24hr?symbols=[%22{base}USDT%22]")[0]
        price, change = Decimal(ticker["lastPrice"]), Decimal(ticker["priceChangePercent"])
        step = price * PRICE_STEP
        rules += [(base, "priceRisesAbove", float(round(price + step, 2))),
                  (base, "priceFallsBelow", float(round(price - step, 2))),
                  (base, "changeRisesAbove", float(round(change + CHANGE_STEP, 2))) if change > 0
                  else (base, "changeFallsBelow", float(round(change - CHANGE_STEP, 2)))]
    profile.alert(*rules)


class Show(threading.Thread):
    """What the readers print, passed on and kept."""

    def __init__(self, source, environment):
        super().__init__(daemon=True)
        self.source = source
        self.environment = environment
        self.rest = b""
        self.texts = []
        self.notifications = []
        self.picture_due = float("inf")
        self.is_ending = False
        self.failure = None
        self.start()

    def run(self):
        try:
            while not self.is_ending:
                if select.select([self.source], [], [], 0.25)[0]:
                    self.read()
                if time.monotonic() > self.picture_due:
                    self.picture_notification()
            if self.picture_due < float("inf"):
                self.picture_notification()
        except Exception as error:  # else it would be lost with this thread
            self.failure = error if isinstance(error, Failure) else Failure(repr(error))

    def end(self):
        """Stops reading; raises what has failed."""
        self.is_ending = True
        self.join()
        if self.failure:
            raise self.failure

    def read(self):
        *lines, self.rest = (self.rest + os.read(self.source, 65536)).split(b"\n")
        for line in map(bytes.decode, lines):
            print(line)
            text = line.partition("  ")[2]
            if not text.startswith(NOTIFICATION):
                self.texts.append(text)
                continue
            self.notifications.append(text)
            if len(self.notifications) <= PICTURED:
                self.picture_due = time.monotonic() + DRAWN_AFTER

    def picture_notification(self):
        saved = picture.save_notification(FOLDER, self.environment)
        print(f"Saved {saved.relative_to(ROOT)}")
        self.picture_due = float("inf")

    def judge(self, seconds):
        """Raises Failure unless prices of the prepared pairs, and alerts on them, were seen."""
        priced = {text for text in self.texts if PRICED.search(text)}
        if not self.texts:
            raise Failure("the panel was given no status text at all")
        if len(priced) < 2:
            raise Failure(f"of {len(self.texts)} status texts only {len(priced)} showed a prepared"
                          " pair's price, and at least two different ones are needed")
        if (seconds or 0) >= ALERTS_FIRE_WITHIN and len(self.notifications) < 2:
            raise Failure(f"only {len(self.notifications)} notifications reached the daemon, and at"
                          " least two are needed")
        print(f"{len(priced)} different status texts with prices, and"
              f" {len(self.notifications)} notifications.")


if __name__ == "__main__":
    sys.exit(main())
