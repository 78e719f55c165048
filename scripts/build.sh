#!/usr/bin/env bash
# scripts/build.sh PRESET [TARGET...]: configures build/PRESET where needed and builds the targets, or all.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset=$1
shift
cache=build/$preset/CMakeCache.txt
options=()
# a tree that was moved or copied brings a cache that names the old place
if [ -f "$cache" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then options=(--fresh); fi
if [ ! -f "build/$preset/build.ninja" ] || [ ${#options[@]} -gt 0 ]; then
  cmake --preset "$preset" "${options[@]}"
fi
targets=()
if [ $# -gt 0 ]; then targets=(--target "$@"); fi
cmake --build "build/$preset" "${targets[@]}"
