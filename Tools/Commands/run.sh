# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# shellcheck shell=bash

command_run() {
    refuseArguments "$@"
    requirePackages build
    requireDisplayPackages
    buildPreset release quorvel
    exec build/release/Quorvel/quorvel
}
