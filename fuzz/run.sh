#!/usr/bin/env bash
# fuzz/run.sh SECONDS [TARGET...]: builds the fuzz targets (clang, build/fuzz) and runs each, or those named, for
# so many seconds on its seeds and on what earlier runs found (build/fuzz/corpus/). Ends with 1 on a finding, whose
# input then lies in build/fuzz/findings/; with 2 when it cannot build.
set -uo pipefail
cd "$(dirname "$0")/.."
seconds=${1:?usage: fuzz/run.sh SECONDS [TARGET...]}
shift
if [ $# -eq 0 ]; then
    set -- $(cd fuzz && ls ./*_fuzz.cpp | sed 's|^\./||; s|\.cpp$||')
fi

mkdir -p build
cmake --preset fuzz >build/fuzz.configure.log 2>&1 || { cat build/fuzz.configure.log; exit 2; }
cmake --build build/fuzz --target "$@" || exit 2

export QT_QPA_PLATFORM=offscreen
# Qt's plug-ins keep what they allocate until the end
export ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1
failed=0
mkdir -p build/fuzz/findings
for target in "$@"; do
    found=build/fuzz/corpus/$target
    seeds=fuzz/seeds/${target%_fuzz}
    words=fuzz/seeds/${target%_fuzz}.dict
    mkdir -p "$found" "$seeds"
    options=(-max_total_time="$seconds" -max_len=20000 -timeout=25 -rss_limit_mb=2048 -malloc_limit_mb=1024
        -print_final_stats=1 -artifact_prefix="build/fuzz/findings/$target-")
    [ -f "$words" ] && options+=(-dict="$words")
    binary=$(find build/fuzz -name "$target" -type f -perm -u+x | head -1)
    echo "== $target, $seconds s"
    if ! "$binary" "${options[@]}" "$found" "$seeds" >"build/fuzz/$target.log" 2>&1; then
        failed=1
        echo "finding in $target:"
        tail -40 "build/fuzz/$target.log"
    else
        grep -E "stat::|DONE" "build/fuzz/$target.log"
    fi
done
exit $failed
