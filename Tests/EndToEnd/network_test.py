# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""The whole program on networks as people have them: clocks that are off, connections that die
without a word, an exchange that does not serve. The fine points of each have tests of their own."""

import signal
import time
import unittest

from session import Session

TICKERS = "/api/v3/ticker/24hr"
MINUTE, HOUR = 60_000, 3_600_000


class Network(Session):
    def setUp(self):
        super().setUp()
        self.profile.prefer({"display.mode": "fixed"})

    def assert_price(self, price, seconds=3):
        self.simulator.push("BTCUSDT", price, "1")
        self.assert_label(f"BTC {price} +1.00% ▲", seconds)

    def test_a_clock_that_is_off_holds_no_price_up(self):
        for off in (-10 * MINUTE, 10 * MINUTE, -8 * HOUR):
            with self.subTest(minutes=off // MINUTE):
                self.simulator.control("clock", offsetMs=off)
                self.start_with_prices()
                for price in ("100.0000", "101.0000"):
                    self.assert_price(price)
                self.end(signal.SIGTERM)
                self.simulator.push("BTCUSDT", "65432.10000000", "1.234")

    def test_a_dead_stream_is_left_and_told_within_twenty_seconds(self):
        self.start_with_prices()
        self.assertEqual(self.item.notice(), "")
        self.simulator.control("silence", silent=True)
        began = time.monotonic()
        self.assert_becomes(lambda: len(self.simulator.details("streamOpened")), 2, 20)
        self.simulator.control("handshake", mode="hang")
        self.simulator.control("drop", how="abort")
        self.assert_becomes(lambda: self.item.notice()[:20], "No connection since ",
                            20 - (time.monotonic() - began) + 6)
        self.assertEqual(self.item.label(), "BTC 65,432.10 +1.23% ▲")

    def test_a_start_without_a_network_is_an_ordinary_start(self):
        self.simulator.stop()
        self.start()
        self.assert_becomes(lambda: self.item.notice()[:20], "No connection since ", 10)
        self.simulator.start()
        self.assert_label("BTC 65,012.34 +1.25% ▲", 4)
        self.assert_becomes(self.item.notice, "")
        self.assert_becomes(lambda: len(self.simulator.requests("/api/v3/exchangeInfo")) >= 1, True,
                            15)

    def test_prices_do_not_wait_for_a_list_that_does_not_answer(self):
        self.simulator.control("rest", path="/api/v3/exchangeInfo", hang=True)
        self.start()
        self.assert_becomes(lambda: len(self.simulator.requests("/api/v3/exchangeInfo")), 1)
        self.simulator.control("rest", path="/api/v3/exchangeInfo", reset=True)
        self.assert_label("BTC 65,432.10 +1.23% ▲", 18)
        self.assert_becomes(lambda: len(self.simulator.requests("/api/v3/exchangeInfo")), 2, 15)
        mute, other = self.simulator.requests("/api/v3/exchangeInfo")
        self.assertNotEqual(mute["clientPort"], other["clientPort"], "a mute one was used again")

    def test_a_handshake_that_hangs_holds_no_price_up(self):
        self.simulator.control("handshake", mode="hang")
        self.start()
        self.assert_label("BTC 65,432.10 +1.23% ▲", 3)

    def test_where_the_exchange_does_not_serve_it_is_said(self):
        self.simulator.control("handshake", mode="refuse", status=451,
                               body='{"code":0,"msg":"Service unavailable from a restricted place"}')
        self.start()
        self.assert_becomes(lambda: "does not serve this place" in self.item.notice(), True, 10)
        self.assert_label("BTC 65,432.10 +1.23% ▲", 10)
        attempts = self.simulator.control("state")["handshakes"]
        time.sleep(5)
        self.assertLessEqual(self.simulator.control("state")["handshakes"] - attempts, 5)

    def test_one_bad_pair_harms_itself_only(self):
        # Known from a list that unpacks to much more than it weighs.
        self.simulator.control("exchangeInfo", bytes=11_000_000)
        self.profile.watch("BTC*", "NOSUCH", "ETH")
        self.simulator.control("walk", running=False)
        self.start_with_prices()
        self.assertEqual(self.simulator.requests(TICKERS)[-1]["target"].count("NOSUCH"), 0)

    def test_a_refusal_is_told_with_its_end_and_heeded(self):
        self.simulator.control("handshake", mode="refuse", status=429,
                               headers={"Retry-After": "5"})
        self.start()
        self.assert_becomes(lambda: "asks this network for a pause" in self.item.notice(), True, 10)
        self.assertIn("Next try at ", self.item.notice())
        self.simulator.control("handshake", mode="accept")
        refused = len(self.simulator.details("handshakeRefused"))
        self.assert_becomes(self.simulator.connection_count, 1, 10)
        self.assertEqual(len(self.simulator.details("handshakeRefused")), refused)
        self.assertEqual(refused, 1)
        self.assert_becomes(self.item.notice, "")


if __name__ == "__main__":
    unittest.main()
