#!/usr/bin/env bash
# scripts/display.sh [--size WIDTHxHEIGHT] COMMAND...: runs the command on a display of its own that nobody sees, with
# a window manager, and ends both with it. Gives the command's exit status, 1 when the display does not start.
set -euo pipefail

size=1600x1200
if [ "${1:-}" = --size ]; then
  size=$2
  shift 2
fi

work=$(mktemp -d "${TMPDIR:-/tmp}/quillbrook-display.XXXXXX")
server="" manager="" command=""
# shellcheck disable=SC2317 # called by the trap
clean_up() {
  trap - EXIT INT TERM HUP
  local pid
  for pid in $command $manager $server; do kill "$pid" 2>/dev/null || true; done
  for pid in $manager $server; do
    for _ in $(seq 50); do
      kill -0 "$pid" 2>/dev/null || break
      sleep 0.1
    done
    kill -KILL "$pid" 2>/dev/null || true
  done
  rm -rf "$work"
}
trap clean_up EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# The server finds a free number itself and writes it to the file once it takes connections.
Xvfb -displayfd 3 -screen 0 "${size}x24" -dpi 96 -nolisten tcp -noreset 3>"$work/number" >"$work/server.log" 2>&1 &
server=$!
for _ in $(seq 300); do
  [ -s "$work/number" ] && break
  kill -0 "$server" 2>/dev/null || break
  sleep 0.1
done
if [ ! -s "$work/number" ]; then
  echo "display: Xvfb did not start" >&2
  cat "$work/server.log" >&2
  exit 1
fi
DISPLAY=:$(tr -d '[:space:]' <"$work/number")
export DISPLAY QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY

# the settings of the system, not those of whoever runs this
XDG_CONFIG_HOME=$work openbox --sm-disable >"$work/manager.log" 2>&1 &
manager=$!
for _ in $(seq 100); do
  [[ $(timeout 5 xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null) == *"window id"* ]] && break
  if ! kill -0 "$manager" 2>/dev/null; then
    echo "display: openbox did not start" >&2
    cat "$work/manager.log" >&2
    exit 1
  fi
  sleep 0.1
done

# in the background, so that a signal to this script is answered at once
"$@" <&0 &
command=$!
status=0
wait "$command" || status=$?
command=""
exit $status
