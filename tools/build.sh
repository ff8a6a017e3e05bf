# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Configures and builds a preset. Sourced after common.sh.

# A build folder that was made elsewhere, or with a compiler that has gone, cannot be continued.
usable_build() {
    local cache=build/$1/CMakeCache.txt compiler
    [[ -f build/$1/build.ninja && -f $cache ]] || return 1
    grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache" || return 1
    compiler=$(sed -n 's/^CMAKE_CXX_COMPILER:[A-Z]*=//p' "$cache")
    [[ -x $compiler ]] || command -v "$compiler" >/dev/null
}

# configure PRESET [-DNAME=VALUE...]: from nothing, or over what is there.
configure() {
    local fresh=()
    usable_build "$1" || fresh=(--fresh)
    stage "Configuring $1" "configure-$1" cmake --preset "$1" "${fresh[@]}" "${@:2}"
}

# build PRESET [TARGET...]: everything, or these.
build() {
    local preset=$1
    shift
    local targets=()
    (($# == 0)) || targets=(--target "$@")
    stage "Building $preset" "build-$preset" nice cmake --build --preset "$preset" "${targets[@]}"
}
