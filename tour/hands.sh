# shellcheck shell=bash
# Sourced by tour/walk.sh: what a person does at the program. Every wait has an end; a step that fails ends the walk
# with a picture of what was on the screen then.
# Positions are device-independent pixels, counted from the corner of the named window's contents.

: "${TOUR_FOLDER:?}" "${TOUR_PROGRAM:?}" "${QT_SCALE_FACTOR:=1}"
program_pid=""

fail() {
  echo "tour: $1" >&2
  import -silent -window root "$TOUR_FOLDER/failed.png" 2>/dev/null || true
  exit 1
}

# start_program
start_program() {
  "$TOUR_PROGRAM" </dev/null >"$TOUR_FOLDER/program.log" 2>&1 &
  program_pid=$!
  trap 'end_program' EXIT
}

end_program() {
  if [ -n "$program_pid" ]; then kill -KILL "$program_pid" 2>/dev/null || true; fi
}

running() { [ -n "$program_pid" ] && kill -0 "$program_pid" 2>/dev/null; }

# window TITLE: the id of the program's visible window whose title has the pattern, or nothing.
window() {
  timeout 10 xdotool search --all --onlyvisible --pid "$program_pid" --name "$1" 2>/dev/null | tail -n 1 || true
}

# wait_window TITLE [SECONDS]: waits until the window is there and prints its id.
wait_window() {
  local id
  for _ in $(seq $((${2:-30} * 5))); do
    id=$(window "$1")
    if [ -n "$id" ]; then
      echo "$id"
      return
    fi
    running || return 1
    sleep 0.2
  done
  return 1
}

# wait_no_window TITLE [SECONDS]
wait_no_window() {
  for _ in $(seq $((${2:-30} * 5))); do
    if [ -z "$(window "$1")" ]; then return; fi
    sleep 0.2
  done
  return 1
}

# wait_file FILE [SECONDS]: waits until the file is there
wait_file() {
  for _ in $(seq $((${2:-30} * 5))); do
    if [ -s "$1" ]; then return; fi
    sleep 0.2
  done
  return 1
}

# word_window TITLE [SECONDS]: waits for a window of the word processor whose title has the pattern and prints its id.
word_window() {
  local id
  for _ in $(seq $((${2:-30} * 5))); do
    id=$(timeout 10 xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 || true)
    if [ -n "$id" ]; then
      echo "$id"
      return
    fi
    sleep 0.2
  done
  return 1
}

# no_word_window TITLE: waits until no window of any program has the title.
no_word_window() {
  for _ in $(seq 100); do
    if [ -z "$(timeout 10 xdotool search --onlyvisible --name "$1" 2>/dev/null)" ]; then return; fi
    sleep 0.2
  done
  return 1
}

# settle: gives the program time to draw what the last step changed.
settle() { sleep 0.6; }

# picture NAME: the whole screen, as TOUR_FOLDER/NAME.png
picture() {
  settle
  timeout 60 import -silent -window root "$TOUR_FOLDER/$1.png" || fail "no picture $1"
  echo "  $1"
}

# picture_of WINDOW-ID NAME: that window alone
picture_of() {
  settle
  timeout 60 import -silent -window "$1" "$TOUR_FOLDER/$2.png" || fail "no picture $2"
  echo "  $2"
}

# pages_of FILE.pdf NAME: one picture a page, NAME-1.png and so on
pages_of() {
  timeout 60 pdftoppm -r 80 -png "$1" "$TOUR_FOLDER/$2" || fail "no pages of $1"
}

# click WINDOW-ID X Y [BUTTON]
click() {
  timeout 10 xdotool mousemove --window "$1" "$(scaled "$2")" "$(scaled "$3")" click "${4:-1}" || fail "no click at $2,$3"
}

double_click() {
  timeout 10 xdotool mousemove --window "$1" "$(scaled "$2")" "$(scaled "$3")" click --repeat 2 --delay 80 1 ||
    fail "no double click at $2,$3"
}

scaled() { awk -v n="$1" -v s="$QT_SCALE_FACTOR" 'BEGIN { printf "%d", n * s + 0.5 }'; }

keys() { timeout 20 xdotool key --clearmodifiers --delay 60 "$@" || fail "no keys $*"; }

write() { timeout 60 xdotool type --clearmodifiers --delay 25 -- "$1" || fail "not typed: $1"; }

# close_program WINDOW-ID: asks the window to close, says Yes when asked whether to leave, and waits for the end.
close_program() {
  local question status=0
  timeout 10 wmctrl -i -c "$1" || fail "the window was not asked to close"
  for _ in $(seq 100); do
    running || break
    question=$(window 'Confirm Exit')
    if [ -n "$question" ]; then keys alt+y; fi
    sleep 0.2
  done
  if running; then fail "the program did not end"; fi
  wait "$program_pid" || status=$?
  program_pid=""
  if [ $status != 0 ]; then fail "the program ended with status $status"; fi
}
