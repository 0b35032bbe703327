#!/bin/bash
# Takes the manual's pictures anew: runs the program on the simulated installation, works it, and
# writes what it shows to docs/manual/images. Takes some ten minutes, most of them for the FIM tracking runs,
# which last as long as they do on a real loop.
set -euo pipefail

cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
source scripts/packages.sh
install_missing_packages "${build_packages[@]}" imagemagick xvfb

cmake --preset release >/dev/null
cmake --build --preset release --target manual_pictures

work=$(mktemp -d)
screen=
scenes=
end_work() {
    # shellcheck disable=SC2086 # a list of numbers
    kill $screen $scenes 2>/dev/null || true
    rm -rf "$work"
}
trap end_work EXIT
trap 'exit 130' INT TERM HUP

# The screen of a small laptop.
mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
screen=$!
DISPLAY=:$(head -n 1 "$work/display")
export DISPLAY QT_QPA_PLATFORM=xcb

# Each scene has a window, a port and settings of its own.
take() {
    build/release/app/manual_pictures \
        --simulator build/release/simulator/ldb-simulator --project . --output "$work" "$@" &
    scenes="$scenes $!"
}
take overview
take editing
take transfer
take losses
take sites
take tracking healthy-loop commissioning commissioning
take tracking earth-leakage fault-finding fault-finding
for scene in $scenes; do
    wait "$scene"
done

# A screen has few colours: a palette halves the files.
mogrify -dither None -colors 200 -strip -define png:compression-level=9 "$work"/*.png
rm -f docs/manual/images/*.png
mkdir -p docs/manual/images
# Those that a page shows; a page that shows another one is found by the tests.
grep -oh 'images/[a-z-]*\.png' docs/manual/*.md | sort -u | while read -r picture; do
    cp "$work/$(basename "$picture")" docs/manual/images/
done
