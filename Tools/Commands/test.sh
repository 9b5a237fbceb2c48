# shellcheck shell=bash

# The tests that start a real panel carry the ctest label "panels".
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
    if $panels && ctest --test-dir build/debug -N -L '^panels$' | grep -q '^Total Tests: 0$'; then
        say "no panel runs yet"
    fi
    say "running the tests"
    ctest --test-dir build/debug --output-on-failure --no-tests=error -j"$(nproc)" "${selection[@]}"
}
