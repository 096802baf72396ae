#!/usr/bin/env bash
# What did this frame look like in an older revision?
#   against.sh REVISION PICTURE.png FRAME FPS [lumenfold-film's arguments]
# Builds lumenfold-film of that revision in build/against/ and films the frame with it. Writes PICTURE-before.png and
# PICTURE-difference.png beside the picture; the difference is stretched so that a step of one is seen.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
revision=$(git -C "$root" rev-parse --short=12 --verify "$1^{commit}")
picture=$2 frame=$3 fps=$4
shift 4

source=$root/build/against/$revision
film=$source/build/programs/lumenfold-film
if [ ! -x "$film" ]; then
    rm -rf "$source"
    mkdir -p "$source"
    git -C "$root" archive "$revision" | tar -x -C "$source"
    {
        cmake -S "$source" -B "$source/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DLUMENFOLD_TESTS=OFF \
            -DLUMENFOLD_BENCH=OFF -DLUMENFOLD_FORGE=OFF
        cmake --build "$source/build" --target lumenfold-film
    } >"$source/build.log" 2>&1 || { tail -n 20 "$source/build.log" >&2; exit 1; }
fi

frames=$(mktemp -d)
trap 'rm -rf "$frames"' EXIT
seconds() { awk -v n="$1" -v fps="$fps" 'BEGIN { printf "%.6f", n / fps }'; }
range=(--from "$(seconds "$((frame * 10 - 5))e-1")" --to "$(seconds "$((frame * 10 + 5))e-1")")
case " $* " in
*" --scene "*) range+=(--seconds "$(seconds $((frame + 1)))") ;;
esac
[ "$frame" -gt 0 ] || range[1]=0
"$film" --show "$source/show" "$@" --fps "$fps" "${range[@]}" "$frames/frame/" >/dev/null
before=${picture%.png}-before.png difference=${picture%.png}-difference.png
mv "$frames"/frame/*.png "$before"
convert "$before" "$picture" -compose difference -composite -auto-level "$difference"
echo "before: $before"
echo "difference, stretched: $difference"
