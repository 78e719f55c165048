# shellcheck shell=bash
# Sourced by run.sh: the tour on displays of its own, at scale 1 and 2. Needs build_library.

take_tour() {
  local tour=$PWD/build/tour scale folder status=0 # tour_home outlives the function: the trap needs it
  rm -rf "$tour"
  mkdir -p "$tour"
  tour_home=$(mktemp -d "${TMPDIR:-/tmp}/quillbrook-tour.XXXXXX")
  trap 'rm -rf "$tour_home"' EXIT
  for scale in 1 2; do
    folder=$tour
    if [ $scale = 2 ]; then folder=$tour/scale-2; fi
    # a program and a library of its own, so that nothing of the user's is opened or changed
    rm -rf "$tour/program"
    mkdir -p "$tour/program" "$folder" "$tour_home/$scale"/{run,config,data,cache}
    chmod 700 "$tour_home/$scale/run"
    cp build/release/quillbrook "$tour/program/"
    if [ -e build/release/Help.chm ]; then cp build/release/Help.chm "$tour/program/"; fi
    build_library "$tour/program/Data/Forms.dat"
    echo "Tour at scale $scale"
    HOME=$tour_home/$scale XDG_RUNTIME_DIR=$tour_home/$scale/run XDG_CONFIG_HOME=$tour_home/$scale/config \
      XDG_DATA_HOME=$tour_home/$scale/data XDG_CACHE_HOME=$tour_home/$scale/cache LC_ALL=C.UTF-8 \
      TOUR_FOLDER=$folder TOUR_PROGRAM=$tour/program/quillbrook QT_SCALE_FACTOR=$scale \
      TOUR_WRITER=$PWD/build/release/quillbrook-writer.so \
      timeout --kill-after=20 900 scripts/display.sh --size "$((1600 * scale))x$((1200 * scale))" \
      bash tour/walk.sh || status=1
  done
  echo
  echo "The tour left:"
  find build/tour -path build/tour/program -prune -o -type f -print | sort | sed 's/^/  /'
  if [ $status != 0 ]; then echo "run.sh: the tour did not get to its end" >&2; fi
  return $status
}
