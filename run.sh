#!/usr/bin/env bash
# ./run.sh                 installs what is missing, builds the program and its library, and starts it
# ./run.sh --new-library   the same with a fresh library; the one in use is kept beside it under another name
# ./run.sh --tour          walks the program on a display that nobody sees and leaves pictures in build/tour/
# Without a display, ./run.sh takes the tour.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage() { sed -n '2,5s/^# //p' run.sh; }

tour=no new_library=no
while [ $# -gt 0 ]; do
  case $1 in
  --tour) tour=yes ;;
  --new-library) new_library=yes ;;
  -h | --help)
    usage
    exit 0
    ;;
  --)
    shift
    break
    ;;
  *)
    echo "run.sh: what is '$1'?" >&2
    usage >&2
    exit 2
    ;;
  esac
  shift
done

if [ $tour = no ] && [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "There is no display here: taking the tour."
  tour=yes
fi

groups=(build)
if [ $tour = yes ]; then
  groups+=(display tour)
elif [ -z "${DISPLAY:-}" ]; then
  groups+=(wayland)
fi
scripts/setup.sh "${groups[@]}"
scripts/setup.sh word || echo "Going on without a word processor: documents are then printed directly."
scripts/build.sh release quillbrook quillbrook-library

# build_library FILE: makes the library of forms/; FILE appears only when it is whole.
build_library() {
  mkdir -p "$(dirname "$1")"
  rm -f "$1.new"
  if ! build/release/quillbrook-library build forms "$1.new"; then
    rm -f "$1.new"
    echo "run.sh: the library could not be built from forms/" >&2
    return 1
  fi
  mv "$1.new" "$1"
}

if [ $tour = yes ]; then
  # shellcheck source=tour/tour.sh
  source tour/tour.sh
  take_tour
  exit
fi

library=build/release/Data/Forms.dat
stamp=build/release/library-built # as old as the forms that the library was made of

# A database that somebody has open holds a lock on its file.
in_use() { grep -q ":$(stat -c %i "$1") " /proc/locks 2>/dev/null; }

if [ ! -e $library ]; then
  echo "Building the library $library"
  build_library $library
  touch $stamp
elif [ $new_library = yes ]; then
  if in_use $library; then
    echo "run.sh: the library is open; close the program first." >&2
    exit 1
  fi
  fresh=build/release/Data/Forms-fresh.dat
  build_library $fresh
  aside=build/release/Data/Forms-$(date +%Y-%m-%d-%H%M%S).dat
  mv $library "$aside"
  # what a crash left unfinished belongs to the old file
  if [ -e $library-journal ]; then mv $library-journal "$aside-journal"; fi
  mv $fresh $library
  touch $stamp
  echo "The library is fresh. The one in use until now, with your own forms, is $aside"
elif [ -n "$(find forms build/release/quillbrook-library -newer $stamp -print -quit 2>/dev/null)" ]; then
  echo "forms/, or what builds a library of it, has changed since your library was built. Your library stays as it is, for"
  echo "it holds your own forms; ./run.sh --new-library builds a fresh one and keeps yours beside it."
fi

exec build/release/quillbrook "$@"
