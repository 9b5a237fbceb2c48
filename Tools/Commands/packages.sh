# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# shellcheck disable=SC2034 # the lists are read by name in missingPackages
# The Debian packages that each purpose needs. Every command names its purposes; what is there
# already is left alone.

packages_build=(
    cmake ninja-build clang-19 lld-19
    qt6-base-dev qt6-svg-dev qt6-websockets-dev qt6-l10n-tools libsimdjson-dev zlib1g-dev
    libx11-dev libxcb1-dev
)
packages_test=(
    libgtest-dev libgmock-dev nghttp2-server openssl dbus-daemon python3 python3-dbus python3-dbusmock python3-gi xvfb dunst
)
packages_demo=(python3 python3-dbus python3-gi imagemagick x11-utils)
packages_desktop=(
    xvfb dbus-daemon openbox picom xdotool imagemagick x11-utils
    mate-panel mate-indicator-applet ayatana-indicator-application dunst
    xfce4-panel sway xwayland waybar
    adwaita-icon-theme fonts-dejavu-core fonts-wqy-microhei at-spi2-core gir1.2-atspi-2.0
)
packages_desktops=(
    gnome-shell gnome-shell-extension-appindicator
    cinnamon xapp-sn-watcher lxqt-panel lxqt-themes
    plasma-workspace plasma-desktop kwin-x11 breeze breeze-icon-theme kde-cli-tools libglib2.0-bin
)
packages_wayland=(qt6-wayland)
packages_bench=(libbenchmark-dev python3)
packages_format=(git clang-format-19)
packages_structure=(git python3)
packages_licences=(reuse)
packages_translations=(git python3)
packages_scripts=(shellcheck)
packages_tidy=(git python3 clang-tidy-19)
packages_sanitizers=(libclang-rt-19-dev llvm-19)
packages_desktopFiles=(desktop-file-utils)

# Prints those of the packages PURPOSE... that are not installed.
missingPackages() {
    local purpose package list
    for purpose in "$@"; do
        list="packages_${purpose}[@]"
        for package in "${!list}"; do
            [[ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" == installed ]] ||
                echo "$package"
        done
    done | sort -u
}

# Installs what is missing of the packages for PURPOSE..., as root or through sudo.
requirePackages() {
    local missing prefix=()
    mapfile -t missing < <(missingPackages "$@")
    [[ ${#missing[@]} -gt 0 ]] || return 0
    command -v apt-get >/dev/null ||
        fail "these Debian packages are needed, and there is no apt-get here: ${missing[*]}"
    if [[ $EUID -ne 0 ]]; then
        command -v sudo >/dev/null ||
            fail "these packages are missing, and only root can install them: ${missing[*]}"
        prefix=(sudo)
    fi
    say "installing ${missing[*]}"
    "${prefix[@]}" apt-get -o DPkg::Lock::Timeout=300 update -q
    "${prefix[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -o DPkg::Lock::Timeout=300 install -y -q --no-install-recommends "${missing[@]}"
}
