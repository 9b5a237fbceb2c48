# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Shows Quorvel in a panel against the exchange simulator, and judges what the panel was given."""

import argparse
import os
import re
import select
import signal
import sys
import time
from pathlib import Path

import desktop
import picture
from children import Children, Failure
from profile import OTHERS, PINNED, Profile
from tour import Tour

ROOT = Path(__file__).absolute().parents[2]
FOLDER = ROOT / "build" / "demo"
RELEASE = ROOT / "build" / "release"
SEED = 20

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
    children = Children(FOLDER / "log")
    try:
        run(options, children)
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
        children.end()


def arguments():
    parser = argparse.ArgumentParser(prog="./dev demo")
    parser.add_argument("--seconds", type=float, help="end by itself after this time")
    parser.add_argument(
        "--desktop", choices=["session", "virtual"], default="virtual", help=argparse.SUPPRESS)
    return parser.parse_args()


def run(options, children):
    for name in ("panel.png", "screen.png", "notification.png", *Tour.pictures()):
        (FOLDER / name).unlink(missing_ok=True)
    profile = Profile(FOLDER / "profile")
    if options.desktop == "virtual":
        print("There is no desktop here: starting a virtual one with a panel.")
        environment = desktop.virtual(children, profile)
    else:
        environment = desktop.own_session()

    simulator = children.start(
        "simulator",
        [str(RELEASE / "Tools/ExchangeSimulator/exchange-simulator"),
         "--port", "0", "--seed", str(SEED)],
        environment)
    profile.prepare(rest_url(simulator))
    source, sink = os.pipe()
    for name in ("reader", "notifications"):
        children.start(name, ["/usr/bin/python3", str(ROOT / f"Tools/Demo/{name}.py")],
                       environment, stdout=sink)

    def start_program(preferences, variables):
        children.stop("quorvel")
        profile.prefer(preferences)
        children.start("quorvel", [str(RELEASE / "Quorvel/quorvel")],
                       profile.environment(environment) | variables)

    tour = None
    if options.desktop == "virtual" and (options.seconds or TOUR_TAKES) >= TOUR_TAKES:
        tour = Tour(FOLDER, environment, start_program)
        tour.start()
    else:
        start_program({}, {})
        print("Pictures of the windows are taken on a virtual desktop only, and take"
              f" {TOUR_TAKES} seconds.")

    print("The status text as the panel gets it, and notifications as the daemon takes them"
          + ("" if options.seconds else ", until Ctrl-C") + ":")
    show = Show(source, children, environment)
    show.follow(options.seconds, tour)
    print(f"Saved {picture.save(FOLDER, environment).relative_to(ROOT)}")
    show.judge(options.seconds)


def rest_url(simulator):
    """The address in the simulator's first line."""
    found = re.fullmatch(r"listening on (http://\S+?)/?", simulator.first_line())
    if not found:
        raise Failure("the simulator does not tell its address")
    return found[1]


class Show:
    """What the readers print, passed on and kept."""

    def __init__(self, source, children, environment):
        self.source = source
        self.children = children
        self.environment = environment
        self.rest = b""
        self.texts = []
        self.notifications = []
        self.picture_due = float("inf")

    def follow(self, seconds, tour):
        """Passes on what the readers print until the time is over or Ctrl-C."""
        end = time.monotonic() + seconds if seconds else float("inf")
        last = end + TOUR_GRACE
        try:
            while (left := (last if tour and tour.is_alive() else end) - time.monotonic()) > 0:
                self.children.check()
                if tour and tour.failure:
                    raise tour.failure
                if select.select([self.source], [], [], min(left, 0.25))[0]:
                    self.read()
                if time.monotonic() > self.picture_due:
                    self.picture_notification()
        except KeyboardInterrupt:
            print()
        if self.picture_due < float("inf"):
            self.picture_notification()
        if tour and tour.failure:
            raise tour.failure
        if tour and seconds and tour.is_alive():
            raise Failure("the windows' pictures took too long")

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
