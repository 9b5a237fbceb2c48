# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""A profile of the demo's own, so that nobody's watchlist or preferences are touched."""

import json
import shutil
import urllib.request
import uuid
from decimal import Decimal

PINNED = ["BTC", "ETH", "SOL"]
OTHERS = ["BNB", "XRP", "DOGE"]

# How far from the first price, or change, a price has to walk for an alert; it takes seconds.
PRICE_STEP = Decimal("0.0002")
CHANGE_STEP = Decimal("0.02")

# Few enough to read at a glance, and each of them moves every second.
SHOWN_AT_ONCE = 2


class Profile:
    """Folders for configuration, data and cache below one folder, and what is prepared in them."""

    def __init__(self, folder):
        self.folder = folder
        self.preferences = {}
        shutil.rmtree(folder, ignore_errors=True)
        self.variables = {
            "XDG_CONFIG_HOME": folder / "config",
            "XDG_DATA_HOME": folder / "data",
            "XDG_CACHE_HOME": folder / "cache",
            "XDG_STATE_HOME": folder / "state",
        }
        for path in self.variables.values():
            path.mkdir(parents=True)

    def environment(self, base):
        return base | {name: str(path) for name, path in self.variables.items()}

    def prepare(self, rest_url):
        """Writes preferences that lead to the simulator, a watchlist, and alerts that soon fire."""
        self.preferences = {
            "exchange.restURL": rest_url,
            "exchange.streamURL": rest_url.replace("http://", "ws://", 1) + "/stream",
            "display.mode": "sideBySide",
            "display.sideBySideLimit": SHOWN_AT_ONCE,
        }
        self.prefer({})
        self._write("XDG_DATA_HOME", "watchlist.json", json.dumps(
            [self._item(base, base in PINNED) for base in PINNED + OTHERS]))
        self._write("XDG_DATA_HOME", "alerts.json", json.dumps(self._alerts(rest_url)))

    def prefer(self, preferences):
        """Writes the prepared preferences and these. While the program does not run."""
        lines = [f"{key}={value}" for key, value in (self.preferences | preferences).items()]
        self._write("XDG_CONFIG_HOME", "Quorvel.conf", "\n".join(["[General]", *lines, ""]))

    def _write(self, home, name, text):
        folder = self.variables[home] / "Quorvel"
        folder.mkdir(exist_ok=True)
        (folder / name).write_text(text)

    @staticmethod
    def _item(base, pinned):
        return {"symbol": {"base": base, "quote": "USDT"}, "isPinnedToStatusBar": pinned}

    @staticmethod
    def _alerts(rest_url):
        """Rules close around the present values, one above and one below for each pair."""
        rules = []
        for base in PINNED:
            url = f"{rest_url}/api/v3/ticker/24hr?symbols=[%22{base}USDT%22]"
            with urllib.request.urlopen(url, timeout=10) as answer:
                ticker = json.load(answer)[0]
            price, change = Decimal(ticker["lastPrice"]), Decimal(ticker["priceChangePercent"])
            step = price * PRICE_STEP
            for kind, threshold in (
                    ("priceRisesAbove", round(price + step, 2)),
                    ("priceFallsBelow", round(price - step, 2)),
                    ("changeRisesAbove", round(change + CHANGE_STEP, 2)) if change > 0 else
                    ("changeFallsBelow", round(change - CHANGE_STEP, 2))):
                rules.append({
                    "id": str(uuid.uuid4()).upper(),
                    "symbol": {"base": base, "quote": "USDT"},
                    "condition": {kind: {"_0": float(threshold)}},
                    "repeatMode": {"once": {}},
                    "isEnabled": True,
                })
        return rules
