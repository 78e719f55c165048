#!/usr/bin/env bash
# scripts/soak.sh N: N rounds of a working day in one process (forms opened, searched, edited, undone, kept), built for
# tests. Says the memory and the open files ten times on the way; exits 1 when they grow. The memory is judged from 3,000
# rounds on: the first fifth of a shorter day is not warm yet.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
rounds=${1:-}
if ! [[ $rounds =~ ^[1-9][0-9]{0,5}$ ]]; then
  echo "usage: scripts/soak.sh N" >&2
  exit 2
fi
scripts/build.sh test app_soak_test >&2
QUILLBROOK_SOAK_ROUNDS=$rounds QTEST_FUNCTION_TIMEOUT=$((300000 + rounds * 1000)) \
  exec scripts/display.sh build/test/tests/app_soak_test
