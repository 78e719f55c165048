#!/usr/bin/env bash
# Walks the program as a person would. Run by ./run.sh --tour on a display of its own.
set -euo pipefail
# shellcheck source=tour/hands.sh
source "$(dirname "${BASH_SOURCE[0]}")/hands.sh"

start_program
main=$(wait_window 'Quillbrook by' 60) || fail "the main window did not come"
picture 01-start
close_program "$main"
