# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash

# The tests that start a real panel carry the ctest label "panels". They leave a picture of each in
# build/panels. With --desktops whole desktops are started, one after the other and last of all: their
# packages bring services that a bus starts by itself, which the other tests are to do without. Without
# --panels they are all that runs then. With --faults the table of faults is planted in a copy, each to be seen by a test.
command_test() {
    local panels=false desktops=false faults=false selection=(-LE '^panels$')
    for argument in "$@"; do
        case "$argument" in
        --panels) panels=true ;;
        --desktops) desktops=true ;;
        --faults) faults=true ;;
        *) fail "test: unknown argument '$argument'" ;;
        esac
    done
    requirePackages build test
    if $desktops && ! $panels && ! $faults; then
        testDesktops
        return
    fi
    if $panels; then
        requirePackages desktop
        selection=()
    fi
    buildPreset release
    buildPreset debug
    say "running the tests"
    ctest --test-dir build/debug --output-on-failure --no-tests=error -j"$(nproc)" "${selection[@]}"
    if $panels; then
        say "pictures of the panels: $(echo build/panels/*.png)"
    fi
    if $faults; then
        say "planting faults"
        Tools/Checks/faults.py table --jobs "$(nproc)"
    fi
    if $desktops; then
        testDesktops
    fi
}

testDesktops() {
    requirePackages desktop desktops
    buildPreset debug
    say "starting whole desktops"
    /usr/bin/python3 -B Tests/EndToEnd/desktops_test.py --verbose
}
