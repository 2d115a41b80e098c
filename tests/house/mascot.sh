#!/bin/sh
# Draws the mascot anew and compares: a picture that was changed by hand would be lost with the next
# change of a part.
set -eu
drawn=$(mktemp -d)
trap 'rm -r "$drawn"' EXIT
"$1/tools/draw-tobble" "$drawn"
ls "$drawn" >"$drawn/.names"
(cd "$1/src/theme/art" && ls tobble-*) | diff "$drawn/.names" -
for picture in "$drawn"/*.svg; do
  cmp "$picture" "$1/src/theme/art/$(basename "$picture")"
done
