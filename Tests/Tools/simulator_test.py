# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""What the simulator has to do as the exchange does it, so that no test of the program passes which
would fail against the exchange."""

import json
import os
import shutil
import socket
import struct
import sys
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).absolute().parents[2]
sys.path.insert(0, str(ROOT / "Tools"))

from Desktop.processes import Processes, becomes  # noqa: E402
from Desktop.simulator import Simulator  # noqa: E402

BUILD = Path(os.environ.get("QUORVEL_BUILD", ROOT / "build/debug"))
BITCOIN = "/stream?streams=btcusdt@ticker"
TEXT, CLOSE, PING, PONG = 1, 8, 9, 10
MASK = b"\x11\x22\x33\x44"


class Client:
    """Sends any frame and sees every one."""

    def __init__(self, simulator, target):
        self.socket = socket.create_connection(("127.0.0.1", simulator.port), timeout=3)
        self.socket.sendall(
            f"GET {target} HTTP/1.1\r\nHost: x\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
            "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n"
            .encode())
        self.file = self.socket.makefile("rb")
        self.head = b"".join(iter(self.file.readline, b"\r\n"))
        self.status = int(self.head.split()[1])

    def send(self, opcode, payload):
        masked = bytes(byte ^ MASK[index % 4] for index, byte in enumerate(payload))
        self.socket.sendall(bytes([0x80 | opcode]) + (
            bytes([0x80 | len(payload)]) if len(payload) < 126
            else struct.pack(">BH", 0xfe, len(payload))) + MASK + masked)

    def close(self):
        self.file.close()
        self.socket.close()

    def next(self):
        """The opcode and the payload of the next frame; nothing when the connection has ended."""
        head = self.file.read(2)
        if len(head) < 2:
            return None
        length = head[1]
        if length >= 126:
            length = int.from_bytes(self.file.read(2 if length == 126 else 8), "big")
        return head[0] & 15, self.file.read(length)

    def next_event(self):
        return json.loads(self.next()[1])["data"]


class ExchangeSimulator(unittest.TestCase):
    def setUp(self):
        folder = Path(tempfile.mkdtemp(prefix="quorvel-"))
        self.addCleanup(shutil.rmtree, folder)
        self.processes = Processes(folder)
        self.addCleanup(self.processes.end)
        self.simulator = Simulator(self.processes, BUILD, None, "--quiet")

    def connect(self, target=BITCOIN, simulator=None):
        client = Client(simulator or self.simulator, target)
        self.addCleanup(client.close)
        return client

    def assert_cut_off(self, client, code):
        frames = list(iter(client.next, None))
        self.assertTrue(frames, "no close frame")
        self.assertEqual((frames[-1][0], frames[-1][1][:2]), (CLOSE, struct.pack(">H", code)))
        client.close()

    def test_a_push_reaches_its_subscribers_at_once_and_later_snapshots(self):
        bitcoin = self.connect()
        ether = self.connect("/stream?streams=ethusdt@ticker")
        self.simulator.control("push", symbol="BTCUSDT", price="101.00", change="1.5",
                               time=1700000000123)
        self.simulator.control("push", symbol="ETHUSDT", price="2")
        event = bitcoin.next_event()
        self.assertEqual(ether.next_event()["s"], "ETHUSDT")
        self.assertEqual([event[key] for key in "eEscP"],
                         ["24hrTicker", 1700000000123, "BTCUSDT", "101.00", "1.5"])
        self.assertEqual("".join(sorted(event)), "ABCEFLOPQabcehlnopqsvwx")
        snapshot = self.simulator.fetch("/api/v3/ticker/24hr?symbols=[%22BTCUSDT%22]")[0]
        self.assertEqual([snapshot[key] for key in ("symbol", "lastPrice", "priceChangePercent")],
                         ["BTCUSDT", "101.00", "1.5"])

    def test_candles_run_up_to_now(self):
        self.simulator.push("ETHUSDT", "1234.5", "0")
        rows = self.simulator.fetch("/api/v3/klines?symbol=ETHUSDT&interval=4h&limit=42")
        hours = 4 * 3600 * 1000
        self.assertEqual([row[0] - rows[0][0] for row in rows], [n * hours for n in range(42)])
        self.assertTrue(0 <= time.time() * 1000 - rows[-1][0] <= hours)
        self.assertEqual((rows[-1][4], len(rows[-1])), ("1234.5", 12))

    def test_commands_are_answered_as_the_exchange_does(self):
        self.simulator.control("limits", messagesPerSecond=100)
        client = self.connect()
        for sent, answered in (
                ('{"method":"SUBSCRIBE","params":["ethusdt@ticker"],"id":1}',
                 '{"result":null,"id":1}'),
                ('{"method":"UNSUBSCRIBE","params":["btcusdt@ticker"],"id":9007199254740993}',
                 '{"result":null,"id":9007199254740993}'),
                ('{"method":"LIST_SUBSCRIPTIONS","id":0}', '{"result":["ethusdt@ticker"],"id":0}'),
                ('{"method":"subscribe","params":["ethusdt@ticker"],"id":4}',
                 '{"code":2,"id":4,"msg":"Invalid request: unknown method"}'),
                ('{"method":"SUBSCRIBE","params":[],"id":5}',
                 '{"code":2,"id":5,"msg":"Invalid request: params must be stream names"}'),
                ('{"method":"SUBSCRIBE","params":["ethusdt@ticker"],"id":-1}',
                 '{"code":2,"msg":"Invalid request: request ID must be an unsigned integer"}'),
                ("nonsense", '{"code":3,"msg":"Invalid JSON: expected an object"}')):
            client.send(TEXT, sent.encode())
            self.assertEqual(client.next(), (TEXT, answered.encode()), sent)
        self.simulator.push("BTCUSDT", "1", "0")
        self.simulator.push("ETHUSDT", "2", "0")
        self.assertEqual(client.next_event()["s"], "ETHUSDT")

    def test_the_sixth_message_in_a_second_is_cut_off(self):
        for opcode in (TEXT, PING, PONG):
            with self.subTest(opcode):
                client = self.connect()
                for pause in (1.05, 0):
                    for _ in range(5):
                        client.send(opcode, b"x")
                    time.sleep(pause)
                self.assertEqual(self.simulator.connection_count(), 1)
                client.send(opcode, b"x")
                self.assert_cut_off(client, 1008)
                self.assertEqual(self.simulator.details("cutOff")[-1]["reason"],
                                 "too many messages")

    def test_who_does_not_return_a_ping_is_cut_off(self):
        self.simulator.control(
            "limits", pingIntervalMs=100, pongDeadlineMs=250, messagesPerSecond=50)
        deaf, wrong, good = (self.connect() for _ in range(3))
        for _ in range(6):
            opcode, payload = good.next()
            self.assertEqual(opcode, PING)
            self.assertTrue(payload)
            good.send(PONG, payload)
            wrong.send(PONG, b"wrong")
        self.assert_cut_off(deaf, 1008)
        self.assert_cut_off(wrong, 1008)
        self.assertEqual(self.simulator.connection_count(), 1)

    def test_the_other_limits_are_enforced(self):
        self.simulator.control("limits", streamsPerConnection=2, connectionAttempts=3,
                               lifetimeMs=400)
        three = "/stream?streams=a@ticker/b@ticker/c@ticker"
        self.assert_cut_off(self.connect(three), 1008)
        subscriber = self.connect("/stream?streams=a@ticker/b@ticker")
        subscriber.send(TEXT, b'{"method":"SUBSCRIBE","params":["c@ticker"],"id":1}')
        self.assert_cut_off(subscriber, 1008)
        self.assert_cut_off(self.connect(), 1001)
        self.assertEqual(self.connect().status, 429)

    def test_the_log_tells_how_a_client_went(self):
        for farewell, code, ended_by in ((b"\x03\xe9gone", 1001, None), (None, None, "fin"),
                                         (None, None, "reset")):
            client = self.connect()
            if farewell:
                client.send(CLOSE, farewell)
                self.assert_cut_off(client, code)
            if ended_by == "reset":
                client.socket.setsockopt(
                    socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            client.close()
            self.assertTrue(becomes(lambda: self.simulator.connection_count() == 0, 3))
            closed = self.simulator.details("streamClosed")[-1]
            self.assertEqual(closed["code"], code)
            self.assertEqual(closed["endedBy"], ended_by or closed["endedBy"])

    def test_a_scenario_is_played_from_the_first_connection(self):
        file = self.processes.log_folder / "scenario.json"
        file.write_text(json.dumps({
            "from": "firstConnection",
            "pairs": [{"symbol": "AAAUSDT", "price": "10", "change": "5"}],
            "pushes": [{"atMs": 100, "symbol": "AAAUSDT", "price": "12"}]}))
        player = Simulator(self.processes, BUILD, None, "--quiet", "--scenario", file)
        time.sleep(0.2)
        snapshot = player.fetch("/api/v3/ticker/24hr?symbols=[%22AAAUSDT%22]")[0]
        self.assertEqual(snapshot["lastPrice"], "10")
        event = self.connect("/stream?streams=aaausdt@ticker", player).next_event()
        self.assertEqual((event["c"], event["P"]), ("12", "26.000"))


if __name__ == "__main__":
    unittest.main()
