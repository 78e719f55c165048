#!/usr/bin/env bash
# scripts/kill-rounds.sh N: builds the test that kills the library's store in the midst of its writes and runs N rounds
# of it. Says how many writes were acknowledged and what the kills hit; exits 1 when one round finds something lost,
# halved or unsound.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
rounds=${1:-}
if ! [[ $rounds =~ ^[1-9][0-9]{0,5}$ ]]; then
  echo "usage: scripts/kill-rounds.sh N" >&2
  exit 2
fi
scripts/build.sh test library_store_kill_test >&2
QUILLBROOK_KILL_ROUNDS=$rounds QTEST_FUNCTION_TIMEOUT=$((300000 + rounds * 5000)) \
  exec build/test/tests/library_store_kill_test AKilledStoreLosesNothingAcknowledgedAndHalvesNothing
