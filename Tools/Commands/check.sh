# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# Each step below is a function step_NAME; `./dev check` runs all, `./dev check NAME...` those named,
# tidy_change and limits among them.

allSteps=(format structure licences translations scripts tidy asan tsan desktop)

command_check() {
    local steps=("$@") step began failed=()
    [[ $# -gt 0 ]] || steps=("${allSteps[@]}")
    for step in "${steps[@]}"; do
        declare -F "step_$step" >/dev/null || fail "check: there is no step '$step' (${allSteps[*]})"
    done
    for step in "${steps[@]}"; do
        began=$SECONDS
        say "check $step"
        # A shell of its own, so that the first failing line ends the step and the others still run.
        if ! ./dev _step "$step"; then
            failed+=("$step")
        fi
        say "check $step took $((SECONDS - began)) s"
    done
    [[ ${#failed[@]} -eq 0 ]] || fail "check FAILED: ${failed[*]}"
    say "check passed: ${steps[*]}"
}

# The C++ files that are ours: tracked, or new and not ignored.
cxxFiles() {
    git ls-files --cached --others --exclude-standard -- '*.h' '*.cpp'
}

step_format() {
    requirePackages format
    cxxFiles | xargs clang-format-19 --dry-run -Werror
}

step_structure() {
    requirePackages structure
    python3 Tools/Checks/structure.py
}

step_licences() {
    requirePackages licences
    reuse lint --quiet || reuse lint
}

step_translations() {
    requirePackages translations
    python3 Tools/Checks/translations.py
}

step_scripts() {
    requirePackages scripts
    shellcheck -x dev .ci/run Tools/Commands/*.sh
}

# The analyser needs the headers that moc makes, hence the build. Findings are errors by .clang-tidy.
step_tidy() {
    requirePackages build test tidy
    buildPreset debug
    cxxFiles | { grep '\.cpp$' || true; } | python3 Tools/Checks/tidy.py build/debug "$(nproc)"
}

# The same for what has changed: since $QUORVEL_BASE, or, where that is not set, within the eight hours
# before the newest commit.
step_tidy_change() {
    local base newest
    requirePackages build test tidy
    buildPreset debug
    newest="$(git log -1 --format=%ct)"
    base="${QUORVEL_BASE:-$(git rev-list -1 --before="@$((newest - 8 * 3600))" HEAD)}"
    python3 Tools/Checks/changed_sources.py "${base:-$(git rev-list --max-parents=0 HEAD | tail -n 1)}" |
        python3 Tools/Checks/tidy.py build/debug "$(nproc)"
}

step_asan() {
    requirePackages build test sanitizers
    buildPreset asan
    ASAN_OPTIONS="suppressions=$PWD/cmake/asan.supp:detect_stack_use_after_return=1:strict_string_checks=1" \
        UBSAN_OPTIONS=print_stacktrace=1 \
        LSAN_OPTIONS="suppressions=$PWD/cmake/lsan.supp:print_suppressions=0" \
        ASAN_SYMBOLIZER_PATH=/usr/bin/llvm-symbolizer-19 \
        ctest --test-dir build/asan --output-on-failure --no-tests=error -j"$(nproc)" -LE '^panels$'
}

# Only what has threads of its own: the platform and the kit.
step_tsan() {
    requirePackages build test sanitizers
    buildPreset tsan PlatformTests QuorvelKitTests
    TSAN_OPTIONS="suppressions=$PWD/cmake/tsan.supp:external_symbolizer_path=/usr/bin/llvm-symbolizer-19" \
        ctest --test-dir build/tsan --output-on-failure --no-tests=error \
        -L '^(PlatformTests|QuorvelKitTests)$' -j"$(nproc)"
}

# Ten minutes of what the exchange counts; not among all steps.
step_limits() {
    requirePackages build test desktop
    buildPreset debug
    /usr/bin/python3 Tools/Checks/limits.py
}

step_desktop() {
    local files=(packaging/*.desktop)
    if [[ ! -e "${files[0]}" ]]; then
        echo "there is no desktop file yet"
        return 0
    fi
    requirePackages desktopFiles
    desktop-file-validate "${files[@]}"
}
