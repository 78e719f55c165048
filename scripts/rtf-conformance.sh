#!/usr/bin/env bash
# scripts/rtf-conformance.sh DIR: reads, writes and reads again each rich text file of a folder and compares what
# comes out; compares its text with LibreOffice's text export of the same file and, where DIR/text/NAME.txt is
# there, with that. Prints a table and the scores; status 1 when something of what must hold does not.
set -euo pipefail
if [ $# -ne 1 ] || [ ! -d "$1" ]; then
  echo "usage: scripts/rtf-conformance.sh DIR" >&2
  exit 2
fi
folder=$(cd "$1" && pwd)
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/build.sh release quillbrook-rtf-conformance >&2

work=$(mktemp -d "${TMPDIR:-/tmp}/quillbrook-conformance.XXXXXX")
trap 'rm -rf "$work"' EXIT
options=()
if [ -d "$folder/text" ]; then options+=(--settled "$folder/text"); fi

# The office program with a profile of its own, so that it does not join one that is open; again for what is left
# when it ends in the middle.
shopt -s nocaseglob
if command -v soffice >/dev/null; then
  mkdir "$work/text"
  for round in 1 2 3; do
    left=()
    for file in "$folder"/*.rtf; do
      name=$(basename "$file")
      if [ -f "$file" ] && [ ! -f "$work/text/${name%.*}.txt" ]; then left+=("$file"); fi
    done
    if [ ${#left[@]} -eq 0 ]; then break; fi
    started=$(date +%s%N)
    timeout 600 soffice --headless -env:UserInstallation="file://$work/profile" --convert-to "txt:Text (encoded):UTF8" \
      --outdir "$work/text" "${left[@]}" >"$work/log" 2>&1 || true
    echo "LibreOffice, run $round: ${#left[@]} files in $((($(date +%s%N) - started) / 1000000)) ms" >&2
  done
  options+=(--other "$work/text")
else
  echo "LibreOffice is not installed: its texts are not compared" >&2
fi

status=0
build/release/quillbrook-rtf-conformance "$folder" "${options[@]}" || status=$?
exit $status
