# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The processes that are started, and their orderly end."""

import os
import signal
import subprocess
import time
from pathlib import Path


class Failure(Exception):
    """A reason why it cannot go on, worded for its reader."""


class Process:
    """One started process, alone in a process group of its own. What it prints goes to files."""

    def __init__(self, name, command, environment, log, **options):
        self.name = name
        self.log = log
        self.errors = Path(f"{log}.err")
        self.is_ending = False
        # The system then ends it with the thread that started it, however that ends.
        command = ["setpriv", "--pdeathsig", "KILL", "--", *map(str, command)]
        with open(log, "wb") as output, open(self.errors, "wb") as errors:
            options.setdefault("stdout", output)
            self.popen = subprocess.Popen(
                command, env=environment, stdin=subprocess.DEVNULL, stderr=errors,
                start_new_session=True, **options)

    @property
    def id(self):
        return self.popen.pid

    def is_running(self):
        return self.popen.poll() is None

    def check(self):
        """Raises Failure when the process has ended on its own."""
        if not self.is_running() and not self.is_ending:
            last = self.errors.read_text(errors="replace").strip().splitlines()[-1:]
            raise Failure(f"{self.name} ended by itself with status {self.popen.returncode}; its"
                          f" last words in {self.errors}: {''.join(last) or 'none'}")

    def lines(self):
        """The whole lines that the process has printed so far."""
        return self.log.read_text(errors="replace").split("\n")[:-1]

    def first_lines(self, count=1, seconds=20):
        """The first lines that the process printed; waits for them."""
        return wait_for(lambda: len(lines := self.lines()) >= count and lines[:count],
                        f"{self.name} to print {count} line(s)", seconds, self)

    def send(self, number):
        """Sends it a signal."""
        self.is_ending = True
        self.popen.send_signal(number)

    def status(self, seconds=10):
        """The exit status once it has ended by itself; negative where a signal ended it."""
        self.is_ending = True
        try:
            return self.popen.wait(seconds)
        except subprocess.TimeoutExpired:
            return None

    def end(self, patience=3):
        """Ends the process and what it left running in its group; waits until it has gone."""
        self.is_ending = True
        for number in (signal.SIGTERM, signal.SIGKILL):
            try:
                os.killpg(self.id, number)
            except ProcessLookupError:
                pass
            if self.status(patience) is not None:
                break


class Processes:
    """Owns every started process; ends the last started first."""

    def __init__(self, log_folder):
        self.log_folder = log_folder
        self.log_folder.mkdir(parents=True, exist_ok=True)
        self.started = []

    def start(self, name, command, environment, **options):
        process = Process(name, command, environment, self.log_folder / f"{name}.log", **options)
        self.started.append(process)
        return process

    def check(self):
        for process in list(self.started):
            process.check()

    def stop(self, process, patience=3):
        """Ends one of them and forgets it."""
        self.started.remove(process)
        process.end(patience)

    def end(self):
        while self.started:
            self.started.pop().end()


def wait_for(condition, what, seconds=10, process=None):
    """The first true answer of condition(), asked for until the time is over."""
    answer = becomes(condition, seconds, process)
    if not answer:
        raise Failure(f"waited {seconds} s in vain for {what}")
    return answer


def becomes(condition, seconds=10, process=None):
    """The first true answer of condition(), or its last one when the time is over."""
    deadline = time.monotonic() + seconds
    while not (answer := condition()) and time.monotonic() < deadline:
        if process:
            process.check()
        time.sleep(0.03)
    return answer


def run(command, environment, text=True, check=True, given=None):
    """What a tool prints until it ends, as text or bytes. It is given no input, or those bytes."""
    source = {"input": given} if given else {"stdin": subprocess.DEVNULL}
    try:
        return subprocess.run(list(map(str, command)), env=environment, capture_output=True,
                              text=text, timeout=20, check=check, **source).stdout
    except (OSError, subprocess.SubprocessError) as error:
        raise Failure(f"{command[0]}: {error}") from error
