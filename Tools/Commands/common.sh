# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# What the commands share: messages, packages, configuring and building a preset.

# shellcheck source=Tools/Commands/packages.sh
source "${commands:?}/packages.sh"

say() { echo "== $*"; }

fail() {
    echo "dev: $*" >&2
    exit 1
}

# In a session without an X server the toolkit needs its plugin for Wayland.
requireDisplayPackages() {
    [[ -n "${DISPLAY:-}" || -z "${WAYLAND_DISPLAY:-}" ]] || requirePackages wayland
}

refuseArguments() {
    [[ $# -eq 0 ]] || fail "unknown argument '$1'"
}

# buildPreset PRESET [--define NAME=VALUE]... [TARGET...]
# Configures only a folder that has not been configured yet, whose preset has changed since, or whose
# cache does not hold the values asked for; otherwise ninja itself sees what has changed.
buildPreset() {
    local preset="$1" folder="build/$1" definitions=() stale=false
    shift
    [[ -f "$folder/build.ninja" && ! CMakePresets.json -nt "$folder/build.ninja" ]] || stale=true
    while [[ "${1:-}" == --define ]]; do
        definitions+=("-D$2")
        grep -qs "^${2%%=*}:[A-Z]*=${2#*=}$" "$folder/CMakeCache.txt" || stale=true
        shift 2
    done
    if $stale; then
        say "configuring $folder"
        cmake --preset "$preset" "${definitions[@]}"
    fi
    say "building $folder"
    cmake --build "$folder" ${1:+--target "$@"}
}
