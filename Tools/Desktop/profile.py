# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""A profile of the program's own, so that nobody's watchlist or preferences are touched."""

import json
import shutil


class Profile:
    """Folders for configuration, data and cache below one folder, and what is in them."""

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
        self.configuration = self.variables["XDG_CONFIG_HOME"] / "Quorvel/Quorvel.conf"
        self.watchlist = self.variables["XDG_DATA_HOME"] / "Quorvel/watchlist.json"
        self.alerts = self.variables["XDG_DATA_HOME"] / "Quorvel/alerts.json"
        for file in (self.configuration, self.watchlist):
            file.parent.mkdir()

    def environment(self, base):
        return base | {name: str(path) for name, path in self.variables.items()}

    def use_exchange(self, simulator):
        self.prefer({"exchange.restURL": simulator.rest_url,
                     "exchange.streamURL": simulator.stream_url})

    def prefer(self, preferences):
        """Writes these preferences beside those of before. While the program does not run."""
        self.preferences |= preferences
        lines = [f"{key}={value}" for key, value in self.preferences.items()]
        self.configuration.write_text("\n".join(["[General]", *lines, ""]))

    def watch(self, *pairs):
        """Writes the watchlist: bases against USDT, a "*" behind a pinned one."""
        self.watchlist.write_text(json.dumps(
            [{"symbol": {"base": pair.rstrip("*"), "quote": "USDT"},
              "isPinnedToStatusBar": pair.endswith("*")} for pair in pairs]))

    def watched(self):
        """The watchlist as it is stored now, written likewise."""
        return [item["symbol"]["base"] + "*" * item["isPinnedToStatusBar"]
                for item in json.loads(self.watchlist.read_text())]

    def alert(self, *rules):
        """Writes the alerts: base, condition, threshold, and the seconds of a repeated one."""
        self.alerts.write_text(json.dumps([
            {"id": f"00000000-0000-4000-8000-{number:012}",
             "symbol": {"base": base, "quote": "USDT"},
             "condition": {condition: {"_0": threshold}},
             "repeatMode": {"repeating": {"cooldown": again[0]}} if again else {"once": {}},
             "isEnabled": True}
            for number, (base, condition, threshold, *again) in enumerate(rules)]))

    def alerted(self):
        """The alerts' rules as they are stored now."""
        return json.loads(self.alerts.read_text())

    def files(self):
        """Every file of configuration and data: its content, and when it was last changed."""
        return {path: (path.is_file() and path.read_bytes(), path.stat().st_mtime_ns)
                for home in ("XDG_CONFIG_HOME", "XDG_DATA_HOME")
                for path in self.variables[home].rglob("*")}
