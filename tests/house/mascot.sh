#!/bin/sh
# Draws the mascot and the icon anew and compares: a picture that was changed by hand would be lost
# with the next change of a part.
set -eu
drawn=$(mktemp -d)
trap 'rm -r "$drawn"' EXIT
"$1/tools/draw-tobble" "$drawn"
listed() {
  (cd "$1" && find src/theme/art data/icons/hicolor/scalable -name 'tobble-*.svg' -o -name 'org.vantrel.*.svg') | sort
}
pictures=$(listed "$drawn")
[ "$pictures" = "$(listed "$1")" ]
for picture in $pictures; do
  cmp "$drawn/$picture" "$1/$picture"
done
icon=$(sed -n 's/^Icon=//p' "$1/data/org.vantrel.Vantrel.desktop.in")
[ -e "$1/data/icons/hicolor/scalable/apps/$icon.svg" ]
