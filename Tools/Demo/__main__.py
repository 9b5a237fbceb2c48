"""Shows Quorvel in a panel against the exchange simulator, and judges what the panel was given."""

import argparse
import os
import re
import select
import signal
import subprocess
import sys
import time
from pathlib import Path

import desktop
import picture
from children import Children, Failure
from profile import OTHERS, PINNED, Profile

ROOT = Path(__file__).absolute().parents[2]
FOLDER = ROOT / "build" / "demo"
RELEASE = ROOT / "build" / "release"
SEED = 20

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
    for name in ("panel.png", "screen.png"):
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
    reader = children.start(
        "reader", ["/usr/bin/python3", str(ROOT / "Tools/Demo/reader.py")], environment,
        stdout=subprocess.PIPE)
    children.start(
        "quorvel", [str(RELEASE / "Quorvel/quorvel")], profile.environment(environment))

    print("The status text as the panel gets it"
          + ("" if options.seconds else ", until Ctrl-C") + ":")
    texts = follow(reader, children, options.seconds)
    print(f"Saved {picture.save(FOLDER, environment).relative_to(ROOT)}")
    judge(texts)


def rest_url(simulator):
    """The address in the simulator's first line."""
    found = re.fullmatch(r"listening on (http://\S+?)/?", simulator.first_line())
    if not found:
        raise Failure("the simulator does not tell its address")
    return found[1]


def follow(reader, children, seconds):
    """Passes on what the reader prints until the time is over or Ctrl-C; gives the texts."""
    texts = []
    end = time.monotonic() + seconds if seconds else float("inf")
    source, rest = reader.process.stdout.fileno(), b""
    try:
        while (left := end - time.monotonic()) > 0:
            children.check()
            if not select.select([source], [], [], min(left, 0.25))[0]:
                continue
            *lines, rest = (rest + os.read(source, 65536)).split(b"\n")
            for line in lines:
                print(line.decode())
                texts.append(line.decode().partition("  ")[2])
    except KeyboardInterrupt:
        print()
    return texts


def judge(texts):
    """Raises Failure unless prices of the prepared pairs were seen to change."""
    priced = {text for text in texts if PRICED.search(text)}
    if not texts:
        raise Failure("the panel was given no status text at all")
    if len(priced) < 2:
        raise Failure(f"of {len(texts)} status texts only {len(priced)} showed a prepared pair's"
                      " price, and at least two different ones are needed")
    print(f"{len(priced)} different status texts with prices.")


if __name__ == "__main__":
    sys.exit(main())
