#!/usr/bin/env bash
# ./test.sh [CTEST OPTIONS]: installs what is missing, builds with warnings as errors and runs the tests, each on a
# display of its own. Options go to ctest: ./test.sh -R parse
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
export LC_ALL=C.UTF-8
if [ "${1:-}" = -- ]; then shift; fi

scripts/setup.sh build display tour
scripts/setup.sh word || echo "Going on without LibreOffice: what needs it is skipped."
scripts/setup.sh bench || echo "Going on without Google Benchmark: the benchmarks are not built."
scripts/build.sh test
exec ctest --test-dir build/test --output-on-failure --no-tests=error --parallel 2 --timeout 600 "$@"
