# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash

# A desktop to show the item in: a display, and a session bus on which its panel can be met.
hasDesktop() {
    [[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]] &&
        [[ -n "${DBUS_SESSION_BUS_ADDRESS:-}" || -S "${XDG_RUNTIME_DIR:-/nonexistent}/bus" ]]
}

command_demo() {
    local desktop=session
    echo "Prices in this demo are simulated: nothing here comes from the exchange."
    hasDesktop || desktop=virtual
    requirePackages build demo
    if [[ $desktop == session ]]; then
        requireDisplayPackages
    else
        requirePackages desktop
    fi
    buildPreset release
    exec /usr/bin/python3 -u Tools/Demo --desktop "$desktop" "$@"
}
