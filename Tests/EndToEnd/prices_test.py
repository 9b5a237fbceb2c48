# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

import signal
import time
import unittest

from session import Session, becomes, wait_for

# The menu's entries: Open, Settings…, a separator, Quit.
OPEN, QUIT = 1, 4
CANDLES = "/api/v3/klines"


class Prices(Session):
    def test_a_pushed_price_is_shown_within_a_second_and_a_half(self):
        # One of each; every pair of them is the presenter's business.
        for mode, content, before, after in (
                ("rotating", "priceOnly", "BTC 65,432.10 ▲", "BTC 1000.0000 ▼"),
                ("sideBySide", "both", "BTC 65,432.10 +1.23% ▲  ETH 0.00001234 -0.50% ▼",
                 "BTC 1000.0000 0.00% ▼  ETH 0.00001234 -0.50% ▼"),
                ("fixed", "changeOnly", "BTC +1.23% ▲", "BTC 0.00% ▼")):
            with self.subTest(mode):
                self.simulator.push("BTCUSDT", "65432.10000000", "1.234")
                self.profile.prefer({"display.mode": mode, "display.content": content,
                                     "display.rotationInterval": 60})
                self.start()
                self.assert_label(before, 10)
                self.assert_becomes(self.simulator.connection_count, 1)
                self.simulator.push("BTCUSDT", "999.99999", "-0.001")
                self.assert_label(after)
                self.assertEqual(self.item.tooltip(), after)
                self.end(signal.SIGTERM)

    def test_only_the_icon_is_left_without_any_pair(self):
        self.profile.watchlist.write_text('[{"symbol":{"base":"btc","quote":"USDT"}},7]')
        self.profile.prefer({"display.showsIcon": "false"})
        self.start()
        self.assertIsNone(self.item.label())
        self.assertEqual(self.item.tooltip(), "Quorvel")
        self.assertEqual(self.simulator.connection_count(), 0)

    def test_they_come_back_within_three_seconds_when_the_exchange_does(self):
        self.profile.prefer({"display.mode": "fixed"})
        self.start_with_prices()
        self.simulator.stop()
        time.sleep(2.5)
        self.simulator.start()
        deadline = time.monotonic() + 3
        self.assert_becomes(self.simulator.connection_count, 1, 3)
        self.simulator.push("BTCUSDT", "70000", "8")
        self.assert_label("BTC 70,000.00 +8.00% ▲", deadline - time.monotonic())
        self.assertEqual(len(self.simulator.details("streamOpened")), 1)

    def test_the_program_survives_the_session_bus(self):
        self.start_with_prices()
        self.desktop.processes.stop(self.session_bus)
        time.sleep(1)
        self.end(signal.SIGTERM)
        self.assertEqual(self.simulator.close_code(), 1001)

    def test_the_chosen_language_is_spoken_with_the_same_numbers(self):
        self.profile.prefer({"display.mode": "fixed"})
        for chosen, session, quit_text in (
                ("simplifiedChinese", "en", "退出"), ("system", "zh_CN:en", "退出"),
                ("system", "zh_TW:en", "Quit"), ("english", "zh_CN", "Quit")):
            with self.subTest(chosen, session=session):
                self.profile.prefer({"interfaceLanguage": chosen})
                self.start(LANGUAGE=session)
                text = self.item.menu("GetProperty", "is", QUIT, "label")
                self.assertEqual(text, quit_text)
                if session == "en":
                    self.assert_label("BTC 65,432.10 +1.23% ▲", 10)
                self.end(signal.SIGTERM)

    def test_the_candles_of_four_pairs_at_a_time_are_loaded_when_the_panel_opens(self):
        self.profile.watch("BTC", "ETH", "BNB", "SOL", "XRP", "DOGE", "ADA", "TRX", "AVAX", "DOT")
        self.simulator.control("rest", path=CANDLES, delayMs=150)
        self.start_with_prices()
        self.item.choose(OPEN)
        self.assert_becomes(lambda: sum(answer["target"].startswith(CANDLES)
                                        for answer in self.simulator.details("answer")), 10)
        requests = self.simulator.requests(CANDLES)
        self.assertEqual(max(request["inFlight"] for request in requests), 4)

    def test_each_end_closes_the_stream_in_order_and_gives_zero(self):
        for end in ("Quit", signal.SIGTERM, signal.SIGINT):
            with self.subTest(end):
                self.start()
                self.assert_becomes(self.simulator.connection_count, 1)
                self.simulator.control("walk", running=True)
                if end == "Quit":
                    self.item.choose(QUIT)
                else:
                    self.program.send(end)
                self.assertEqual(self.program.status(), 0)
                self.assertEqual(self.simulator.close_code(), 1001)

    def test_the_program_ends_also_while_the_exchange_does_not_answer(self):
        self.simulator.control("rest", path="/api/v3/exchangeInfo", hang=True)
        self.simulator.control("rest", path="/api/v3/ticker/24hr", hang=True)
        self.start()
        wait_for(lambda: self.simulator.details("request"), "a request")
        self.assert_label("BTC", 3)  # a pair without a price shows its name alone
        self.end(signal.SIGTERM)

    def test_the_users_files_are_left_alone(self):
        damaged = '[{"symbol":{"base":"BTC","quote":"USDT"},"isPinnedToStatusBar":true},{'
        self.profile.watchlist.write_text(damaged)
        self.start()
        self.end(signal.SIGTERM)
        self.assertEqual(self.profile.watchlist.read_text(), damaged)


class Sleep(Session):
    def set_up_desktop(self):
        super().set_up_desktop()
        self.desktop.start("login-manager", [
            "/usr/bin/python3", "-m", "dbusmock", "--session", "--template", "logind"])

    def locks(self):
        """How many programs hold up the machine's sleep."""
        return len(self.call_manager("org.freedesktop.login1.Manager", "ListInhibitors", ""))

    def announce(self, is_about_to_sleep):
        self.call_manager("org.freedesktop.DBus.Mock", "EmitSignal", "sssav",
                          "org.freedesktop.login1.Manager", "PrepareForSleep", "b",
                          [is_about_to_sleep])

    def call_manager(self, interface, method, signature, *arguments):
        return self.bus.call_blocking("org.freedesktop.login1", "/org/freedesktop/login1",
                                      interface, method, signature, arguments)

    def test_it_waits_for_the_stream_to_be_dropped_and_waking_takes_it_up_once(self):
        self.start_with_prices()
        self.assert_becomes(self.locks, 1)
        self.announce(True)
        self.assert_becomes(self.locks, 0)
        self.assert_becomes(self.simulator.connection_count, 0)
        self.assertEqual(self.simulator.close_code(), 1001)
        self.assertEqual(len(self.simulator.requests("/api/v3/ticker/24hr")), 1)

        self.simulator.push("BTCUSDT", "70000", "8")
        self.announce(False)
        self.assert_label("BTC 70,000.00 +8.00% ▲", 5)
        self.assert_becomes(self.simulator.connection_count, 1)
        self.assert_becomes(self.locks, 1)
        first, second = self.simulator.requests("/api/v3/ticker/24hr")
        self.assertNotEqual(first["clientPort"], second["clientPort"], "none is used again")
        self.assertEqual(len(self.simulator.details("streamOpened")), 2)

        self.end(signal.SIGTERM)
        self.assert_becomes(self.locks, 0)


class Alerts(Session):
    """With a display and a real notification daemon."""

    TOLD_LAST = "ETH Rises above 1.0000 | Now 2.0000  +0.10%"

    def set_up_desktop(self):
        self.desktop.start_display()
        super().set_up_desktop()
        self.daemon = self.desktop.start_daemon()
        self.reader = self.desktop.start_tool("notification_reader")
        wait_for(lambda: self.reader.errors.read_text(), "the reader of notifications")

    def shown(self, count):
        """What the daemon has taken, once it is as much as that."""
        becomes(lambda: len(self.reader.lines()) >= count)
        return [line.partition("Notification: ")[2] for line in self.reader.lines()]

    def test_they_reach_the_daemon_in_order_and_are_not_repeated_after_a_restart(self):
        self.profile.alert(("BTC", "priceRisesAbove", 66000), ("BTC", "changeRisesAbove", 2.00),
                           ("ETH", "priceRisesAbove", 1))
        self.start_with_prices()
        self.simulator.push("BTCUSDT", "66000", "2")
        self.simulator.push("BTCUSDT", "66000.01", "2.005")
        told = ["BTC Rises above 66,000.00 | Now 66,000.01  +2.01%",
                "BTC Gain exceeds +2.00% | Now 66,000.01  +2.01%"]
        self.assertEqual(self.shown(2), told)
        stored = self.profile.alerted()
        self.assertEqual([rule["isEnabled"] for rule in stored], [False, False, True])
        self.assertIsInstance(stored[1]["lastTriggeredAt"], float)

        self.end(signal.SIGTERM)
        self.start_with_prices()
        for symbol, price, change in (("BTCUSDT", "65000", "1"), ("BTCUSDT", "67000", "3"),
                                      ("ETHUSDT", "2", "0.1")):
            self.simulator.push(symbol, price, change)
        self.assertEqual(self.shown(3), [*told, self.TOLD_LAST])

    def test_one_counts_for_each_mode_when_the_price_comes_back(self):
        self.profile.alert(("BTC", "priceRisesAbove", 100), ("BTC", "priceRisesAbove", 100, 900),
                           ("ETH", "priceRisesAbove", 1))
        self.start_with_prices()
        for price in ("99", "101", "102", "100", "101"):
            self.simulator.push("BTCUSDT", price, "0")
        self.shown(2)
        self.simulator.push("ETHUSDT", "2", "0.1")
        told = "BTC Rises above 100.0000 | Now 101.0000  0.00%"
        self.assertEqual(self.shown(3), [told, told, self.TOLD_LAST])

    def test_they_are_delivered_also_when_the_program_is_told_to_end_at_once(self):
        self.profile.alert(("BTC", "priceRisesAbove", 66000))
        self.start_with_prices()
        self.simulator.push("BTCUSDT", "66001", "2")
        wait_for(lambda: not self.profile.alerted()[0]["isEnabled"], "the alert to fire")
        self.end(signal.SIGTERM)
        self.assertEqual(self.shown(1), ["BTC Rises above 66,000.00 | Now 66,001.00  +2.00%"])

    def test_a_second_start_takes_over_from_a_first_that_ends_once_they_are_delivered(self):
        self.profile.alert(("BTC", "priceRisesAbove", 66000))
        self.start_with_prices()
        self.daemon.send(signal.SIGSTOP)
        self.simulator.push("BTCUSDT", "66001", "2")
        wait_for(lambda: not self.profile.alerted()[0]["isEnabled"], "the alert to fire")
        self.program.send(signal.SIGTERM)
        second = self.launch()
        time.sleep(0.5)
        self.assertTrue(self.program.is_running())
        self.daemon.send(signal.SIGCONT)
        self.assertEqual(self.program.status(), 0)
        self.program = second
        self.assert_becomes(lambda: self.listed() is not None, True)


if __name__ == "__main__":
    unittest.main()
