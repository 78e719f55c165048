#!/usr/bin/env bash
# scripts/setup.sh GROUP...: sees to it that the packages of the groups are there.
# Groups: build, word, display, tour, bench, peers, wayland, fuzz. Says what is missing and why, and installs it with apt-get.
# Where that cannot be done (no apt-get, no right to, no network) it lists what is missing and exits 1.
set -euo pipefail
export LC_ALL=C # what apt says is read below

# The one list: group | package, or alternatives in order of liking | how to see it on another system | why.
# cmd: a command; pc: a pkg-config module; lib: a static library; font: a font family; none: cannot be seen.
packages() {
  local rows
  mapfile -t rows <<'LIST'
build|g++|cmd:g++|the C++20 compiler
build|cmake|cmd:cmake|writes the build files (3.25 or later)
build|ninja-build|cmd:ninja|runs the build
build|ccache|cmd:ccache|makes a second build quick
build|pkg-config pkgconf|cmd:pkg-config|finds the libraries below
build|qt6-base-dev|pc:Qt6Widgets|the window toolkit (6.4 or later)
build|qt6-svg-dev libqt6svg6-dev|pc:Qt6Svg|draws the icons at every scale
build|qt6-qpa-plugins|none|the toolkit's platform plug-ins, without a display too
build|libsqlcipher-dev|lib:sqlcipher|the encrypted database engine of the library file
build|libssl-dev|pc:libcrypto|the ciphers of the database engine
build|libhunspell-dev|pc:hunspell|reads the dictionary that the forms are spelt by
build|hunspell-en-us|none|that dictionary: American English
build|fp-utils-3.2.2 fp-utils|cmd:chmcmd|compiles the help file
build|libgl-dev|pc:gl|the toolkit's headers ask for it
build|fonts-liberation2 fonts-liberation|font:Liberation Serif|the letter shapes of the forms
word|libreoffice-writer|cmd:soffice|the word processor that prints with options, previews, exports and saves documents
word|libreoffice-lightproof-en|none|its rules of English grammar, for the check of spelling and grammar
word|python3-uno|none|runs those rules
word|libreoffice-dev|none|what the bridge to that word processor is built with
wayland|qt6-wayland|none|windows on a desktop that has no X server
wayland|libreoffice-gtk3|none|the same for the windows of the word processor
display|xvfb|cmd:Xvfb|a display that nobody sees, for tests and tour
display|openbox|cmd:openbox|gives the windows of that display focus and frames
display|x11-utils|cmd:xprop|tells when that display is ready
tour|xdotool|cmd:xdotool|moves the tour's mouse and types its keys
tour|wmctrl|cmd:wmctrl|closes the tour's windows as a person would
tour|imagemagick|cmd:import|takes the tour's pictures
tour|file|cmd:file|tells what kind of file a saved document is
tour|poppler-utils|cmd:pdftoppm|shows the pages of the printed documents
bench|libbenchmark-dev|pc:benchmark|times the benchmarks
peers|ripgrep|cmd:rg|searches the same texts as files, beside our search
peers|libsqlite3-0|none|searches the same texts in memory, beside our search
fuzz|clang|cmd:clang++|the compiler that has the fuzzer
LIST
  printf '%s\n' "${rows[@]}"
  # the fuzzer's run-time library goes by the version of clang, and only a clang that is there tells it
  local version=""
  if command -v clang >/dev/null; then
    version=$(clang -dumpversion 2>/dev/null | cut -d. -f1) || true
  elif command -v apt-cache >/dev/null; then
    version=$(apt-cache depends clang 2>/dev/null | sed -n 's/.*Depends: clang-\([0-9][0-9]*\)$/\1/p' | head -n 1) || true
  fi
  echo "fuzz|libclang-rt-${version:-14}-dev|none|the fuzzer's and the sanitizers' run-time library"
}

# seen HOW: whether what the third column names is there; what cannot be seen counts as there.
seen() {
  local what=${1#*:}
  case $1 in
  cmd:*) command -v "$what" >/dev/null ;;
  pc:*) pkg-config --exists "$what" 2>/dev/null ;;
  lib:*) [ "$(${CXX:-g++} -print-file-name="lib$what.a" 2>/dev/null || echo "lib$what.a")" != "lib$what.a" ] ;;
  font:*) ! command -v fc-list >/dev/null || [ -n "$(fc-list "$what" 2>/dev/null)" ] ;;
  *) true ;;
  esac
}

debian() { command -v dpkg-query >/dev/null && command -v apt-get >/dev/null && command -v apt-cache >/dev/null; }

# The names of all installed packages and of the names they stand in for, one a line.
installed_names() {
  # shellcheck disable=SC2016 # the fields are dpkg-query's own
  dpkg-query -W -f='${db:Status-Status}\t${Package}, ${Provides}\n' 2>/dev/null |
    sed -n 's/^installed\t//p' | tr ',' '\n' | sed 's/^ *//; s/[ :(].*//; /^$/d'
}

# has_candidate PACKAGE: whether apt-get knows a version that it could install.
has_candidate() { [[ $(apt-cache policy "$1" 2>/dev/null) =~ Candidate:\ [^\(] ]]; }

# choose ALTERNATIVE...: the first that can be installed, else the first.
choose() {
  local name
  for name in "$@"; do
    if has_candidate "$name"; then
      echo "$name"
      return
    fi
  done
  echo "$1"
}

missing=() # rows "alternatives|reason"
find_missing() {
  local group names how why name have="" found
  missing=()
  if debian; then have=$(installed_names); fi
  while IFS='|' read -r group names how why; do
    [[ " $groups " == *" $group "* ]] || continue
    found=no
    if debian; then
      for name in $names; do
        if grep -qxF -- "$name" <<<"$have"; then found=yes; fi
      done
    elif seen "$how"; then
      found=yes
    fi
    if [ $found = no ]; then missing+=("$names|$why"); fi
  done < <(packages)
}

list_missing() {
  local row names
  for row in "${missing[@]}"; do
    names=${row%%|*}
    printf '  %-28s %s\n' "${names// / or }" "${row#*|}"
  done
}

give_up() {
  {
    echo "setup: $1"
    echo "These packages (names of Debian 12) are missing:"
    list_missing
    echo "Install them and start again."
  } >&2
  exit 1
}

as_root=()
apt() {
  timeout --foreground 1800 "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q \
    -o Acquire::Retries=2 -o Acquire::http::Timeout=30 -o Acquire::https::Timeout=30 -o DPkg::Lock::Timeout=300 \
    "$@" </dev/null
}

groups=${*:-build}
for group in $groups; do
  case $group in
  build | word | display | tour | bench | peers | wayland | fuzz) ;;
  *)
    echo "setup: no group is called '$group'" >&2
    exit 2
    ;;
  esac
done

find_missing
if [ ${#missing[@]} -eq 0 ]; then exit 0; fi
if ! debian; then give_up "this system has no apt-get."; fi

if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then give_up "installing needs root, and there is no sudo."; fi
  as_root=(sudo)
  # nobody there to type a password
  if [ -n "${CI:-}" ] || [ ! -t 0 ] || [ ! -t 2 ]; then as_root=(sudo -n); fi
  echo "To install the packages below, sudo may ask for your password."
  if ! "${as_root[@]}" true; then give_up "installing needs root, and sudo does not give it."; fi
fi

echo "Installing what is missing:"
list_missing

updated=no
update() {
  echo "Fetching the list of packages (apt-get update)"
  updated=yes
  apt update || true # an old list may still do
}

chosen=()
choose_all() {
  local row names
  chosen=()
  for row in "${missing[@]}"; do
    read -ra names <<<"${row%%|*}"
    chosen+=("$(choose "${names[@]}")")
  done
}
choose_all
for name in "${chosen[@]}"; do
  if ! has_candidate "$name"; then
    update
    choose_all
    break
  fi
done
if ! apt install -y --no-install-recommends "${chosen[@]}"; then
  if [ $updated = no ]; then
    update
    choose_all
    apt install -y --no-install-recommends "${chosen[@]}" || true
  fi
fi

find_missing
if [ ${#missing[@]} -ne 0 ]; then give_up "apt-get could not install everything."; fi
