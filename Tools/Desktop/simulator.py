# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The simulated exchange, and its control from outside."""

import json
import re
import urllib.error
import urllib.request

from .processes import Failure, becomes


class Simulator:
    """A process of its own on a port of its own."""

    def __init__(self, processes, build, environment, *options):
        self.processes = processes
        self.environment = environment
        self.command = [build / "Tools/ExchangeSimulator/exchange-simulator", *options]
        self.port = 0
        self.start()

    def start(self):
        """Starts it; once more on the port that it had."""
        self.process = self.processes.start(
            "simulator", [*self.command, "--port", self.port], self.environment)
        line = self.process.first_lines()[0]
        found = re.fullmatch(r"listening on http://127\.0\.0\.1:(\d+)", line)
        if not found:
            raise Failure(f"the simulator does not tell its address: {line}")
        self.port = int(found[1])

    def stop(self):
        """Ends it without a word to its clients."""
        self.processes.stop(self.process)

    @property
    def rest_url(self):
        return f"http://127.0.0.1:{self.port}"

    @property
    def stream_url(self):
        return f"ws://127.0.0.1:{self.port}/stream"

    def control(self, name, **parameters):
        """The answer to a control call."""
        return self.fetch(f"/control/{name}", json.dumps(parameters).encode())

    def fetch(self, target, body=None):
        """The JSON document at that target."""
        try:
            with urllib.request.urlopen(self.rest_url + target, body, timeout=10) as answer:
                return json.load(answer)
        except urllib.error.HTTPError as error:
            raise Failure(f"the simulator refuses {target}: {error.read().decode()}") from error

    def push(self, symbol, price, change):
        self.control("push", symbol=symbol, price=price, change=change)

    def details(self, kind):
        """The details of the log's events of that kind."""
        return [event["detail"] for event in self.control("log") if event["kind"] == kind]

    def requests(self, path):
        """The requests for targets that begin so."""
        return [detail for detail in self.details("request") if detail["target"].startswith(path)]

    def connection_count(self):
        return self.control("state")["connectionCount"]

    def close_code(self):
        """The code with which the latest stream was closed; nothing where it went without."""
        closed = becomes(lambda: self.details("streamClosed"), seconds=5)
        return closed[-1]["code"] if closed else None
