#!/usr/bin/env bash
# bench/run.sh [ARGUMENT...]: builds the benchmarks and prints the table of each. Arguments go to every benchmark,
# such as --benchmark_filter=Snapshot.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/setup.sh build bench peers display tour
scripts/setup.sh word || echo "Going on without a word processor." >&2
programs=()
for source in bench/*_bench.cpp; do programs+=("$(basename "$source" .cpp)"); done
scripts/build.sh bench "${programs[@]}" >&2
for program in "${programs[@]}"; do
  printf '\n%s\n\n' "$program"
  scripts/display.sh build/bench/bench/"$program" --benchmark_counters_tabular=true "$@" 2>/dev/null
done
