# shellcheck shell=bash

command_run() {
    refuseArguments "$@"
    requirePackages build
    requireDisplayPackages
    buildPreset release quorvel
    exec build/release/Quorvel/quorvel
}
