# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The processes that the demo starts, and their orderly end."""

import os
import signal
import subprocess
import time
from pathlib import Path


class Failure(Exception):
    """A reason why the demo cannot go on, worded for its user."""


class Child:
    """One started process, alone in a process group of its own; what it prints goes to a file."""

    def __init__(self, name, command, environment, log, **options):
        self.name = name
        self.log = log
        self.is_ending = False
        options.setdefault("stdout", open(log, "wb"))
        try:
            self.process = subprocess.Popen(
                command, env=environment, stdin=subprocess.DEVNULL, stderr=open(f"{log}.err", "wb"),
                start_new_session=True, **options)
        except OSError as error:
            raise Failure(f"{name} does not start: {error}") from error

    def check(self):
        """Raises Failure when the process has ended on its own."""
        status = self.process.poll()
        if status is not None and not self.is_ending:
            last = Path(f"{self.log}.err").read_text(errors="replace").strip().splitlines()[-1:]
            raise Failure(f"{self.name} ended by itself with status {status}; its last words in"
                          f" {self.log}.err: {''.join(last) or 'none'}")

    def first_line(self, seconds=10):
        """The first whole line that the process printed; waits for it."""
        def line():
            text = self.log.read_text(errors="replace")
            return text.splitlines()[0] if "\n" in text else None
        return wait_for(line, f"{self.name} to print its first line", self, seconds)

    def end(self, patience=3):
        """Ends the process and what it left running in its group; waits until it has gone."""
        self.is_ending = True
        for number in (signal.SIGTERM, signal.SIGKILL):
            try:
                os.killpg(self.process.pid, number)
            except ProcessLookupError:
                pass
            try:
                self.process.wait(patience)
                break
            except subprocess.TimeoutExpired:
                continue


class Children:
    """Owns every started process; ends the last started first."""

    def __init__(self, log_folder):
        self.log_folder = log_folder
        self.log_folder.mkdir(parents=True, exist_ok=True)
        self.started = []

    def start(self, name, command, environment, **options):
        child = Child(name, command, environment, self.log_folder / f"{name}.log", **options)
        self.started.append(child)
        return child

    def check(self):
        for child in list(self.started):
            child.check()

    def stop(self, name):
        """Ends the process of this name, if there is one, and forgets it."""
        for child in [child for child in self.started if child.name == name]:
            self.started.remove(child)
            child.end()

    def end(self):
        while self.started:
            self.started.pop().end()


def wait_for(condition, what, child=None, seconds=10):
    """The first true answer of condition(), asked for until the time is over."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        answer = condition()
        if answer:
            return answer
        if child:
            child.check()
        time.sleep(0.05)
    raise Failure(f"waited {seconds} s in vain for {what}")
