# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash

# The tests that start a real panel carry the ctest label "panels". They leave a picture of each in
# build/panels.
command_test() {
    local panels=false selection=(-LE '^panels$')
    for argument in "$@"; do
        [[ "$argument" == --panels ]] || fail "test: unknown argument '$argument'"
        panels=true
    done
    requirePackages build test
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
}
