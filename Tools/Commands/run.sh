# shellcheck shell=bash

command_run() {
    refuseArguments "$@"
    requirePackages build
    buildPreset release quorvel
    exec build/release/Quorvel/quorvel
}
