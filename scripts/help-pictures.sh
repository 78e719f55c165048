#!/usr/bin/env bash
# scripts/help-pictures.sh [FOLDER]: makes the pictures of the help (help/pictures/) from those that the tour left in
# FOLDER, build/tour when none is named. Take the tour first: ./run.sh --tour
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
tour=${1:-build/tour}

# The picture of the help | that of the tour, without its number | what is cut out of it, as ImageMagick's geometry
list() {
  cat <<'LIST'
form|form|
results|results|
search|search|0x260+0+0
hits|hits|
favorites|favorites|0x200+0+0
history|history|0x200+0+0
edit|edit|0x320+0+0
jurat|add-jurat|
caption|caption|0x420+0+0
verification|add-to-pleading|
bar|edit|0x84+80+52
my-forms|my-forms|0x320+0+0
new-form|new-form|0x320+0+0
save|save|
page-setup|page-setup|
theme|theme-dialog|
contact|contact|
LIST
}

mkdir -p help/pictures
while IFS='|' read -r name from cut; do
  source=$(find "$tour" -maxdepth 1 -name "[0-9][0-9]-$from.png" -print -quit)
  if [ -z "$source" ]; then
    echo "help-pictures: the tour left no picture $from in $tour" >&2
    exit 1
  fi
  # few colours and no larger than the page: the help stays small
  convert "$source" ${cut:+-crop "$cut" +repage} -resize '620x>' -strip -dither None -colors 64 \
    -bordercolor '#c3c9d2' -border 1 "PNG8:help/pictures/$name.png"
done < <(list)
du -ch help/pictures/*.png | tail -n 1
