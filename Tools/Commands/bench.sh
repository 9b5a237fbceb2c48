# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash

# Runs every executable named *Benchmarks. A benchmark `X/subject` is compared with `X/reference`.
# Repetitions are mixed at random, so that a slow moment of the machine meets both sides of a ratio.
command_bench() {
    local programs program results=build/bench
    refuseArguments "$@"
    [[ -f Benchmarks/CMakeLists.txt ]] || fail "bench: there are no benchmarks yet"
    requirePackages build bench
    buildPreset release --define QUORVEL_BENCHMARKS=ON
    mapfile -t programs < <(find build/release -type f -name '*Benchmarks' -perm -u+x | sort)
    [[ ${#programs[@]} -gt 0 ]] || fail "bench: the build made no benchmark"
    rm -rf "$results"
    mkdir -p "$results"
    for program in "${programs[@]}"; do
        say "running ${program##*/}"
        "$program" --benchmark_format=json --benchmark_repetitions=5 \
            --benchmark_enable_random_interleaving=true >"$results/${program##*/}.json"
    done
    python3 Tools/Bench/table.py build/bench.json "$results"/*.json
}
