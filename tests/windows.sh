#!/usr/bin/env bash
# Builds the programs for Windows and tries them in wine: the zip unpacked into a folder with a name that needs Unicode,
# frames of every scene beside the native program's, the window, closed by a key and by its frame, messages, films
# (about five minutes after the first build).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/setup/build.sh"

install_packages windowstest
build run film -- -- lumenfold-film
./windows
native=$root/build/release/programs/lumenfold-film
work=$(mktemp -d)
export WINEPREFIX=$work/wine WINEDEBUG=-all
wine=/usr/lib/wine/wine64
failures=0
screen=
program=

finish() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    /usr/lib/wine/wineserver64 -k 2>/dev/null || true # the server of this prefix only
    [ -z "$screen" ] || kill $screen 2>/dev/null || true
    rm -rf "$work"
}
trap finish EXIT

check() { # WHAT COMMAND...
    local what=$1
    shift
    if "$@"; then
        echo "ok    $what"
    else
        echo "FAILS $what"
        failures=$((failures + 1))
    fi
}

exec 3< <(Xvfb -displayfd 1 -screen 0 1280x1024x24 2>/dev/null & echo "$!"; wait)
read -r screen <&3
read -r number <&3
export DISPLAY=:$number
openbox & # whose Alt+F4 closes a window as its frame does
screen="$screen $!"

folder="$work/Příliš žluťoučký 東京"
mkdir "$folder"
python3 -m zipfile -e build/windows/lumenfold-*.zip "$folder"
mv "$folder"/lumenfold-*/* "$folder"
$wine wineboot --init >/dev/null 2>&1
cd "$work" # the programs find the show beside them

# What it needs of others, and that no console opens.
headers() { x86_64-w64-mingw32-objdump -p "$folder/$1"; }
foreign() { headers "$1" | sed -n 's/.*DLL Name: //p' | grep -viE '^(kernel32|user32|gdi32|advapi32|shell32|ole32|oleaut32|imm32|setupapi|version|winmm|msvcrt|rpcrt4|shlwapi|dinput8|ws2_32)\.dll$'; }
for name in lumenfold.exe lumenfold-film.exe; do
    check "$name needs only what every Windows has: $(foreign $name | tr '\n' ' ')" test -z "$(foreign $name)"
done
check "lumenfold.exe opens no console" grep -q 'Subsystem.*GUI' <(headers lumenfold.exe)
check "it has icon, version and manifest" test "$(headers lumenfold.exe | grep -cE '^[0-9a-f]+ {3}Entry: ID: 0x0000(03|0e|10|18)')" = 4

# The frames of every scene.
film() { $wine "$folder/lumenfold-film.exe" "$@"; }
since() { awk -v begin="$1" -v end="$(date +%s.%N)" -v frames="$2" 'BEGIN { printf "%.0f", frames / (end - begin) }'; }
for scene in $("$native" --scene list); do
    words=(--scene "$scene" --sync '37@2,33@6,36@10,39@14,32@18,59@20' --seconds 2 --hash)
    begin=$(date +%s.%N)
    (cd "$root" && "$native" "${words[@]}") >native.txt 2>/dev/null
    rate=$(since "$begin" 120)
    begin=$(date +%s.%N)
    film "${words[@]}" >wine.txt 2>/dev/null || true
    check "$scene: $(wc -l <native.txt) frames equal ($rate a second native, $(since "$begin" 120) in wine)" \
        cmp -s native.txt wine.txt
done
(cd "$root" && "$native" --from 20 --to 24 "$work/native.wav") >/dev/null 2>&1
film --from 20 --to 24 wine.wav >/dev/null 2>&1 || true
check "four seconds of sound equal" cmp -s native.wav wine.wav

# Messages.
film --show nowhere --hash >/dev/null 2>errors.txt || true
check "a missing folder is reported: $(tr -d '\r' <errors.txt | head -n 1)" grep -q nowhere errors.txt

# Films: the encoder reads two pipes.
x86_64-w64-mingw32-g++-posix -std=c++20 -static -o encoder.exe "$root/tests/windows/encoder.cpp"
mv encoder.exe "$folder/ffmpeg.exe" # beside the program, where Windows looks first
film --scene twinTunnel --seconds 2 film.mp4 >/dev/null 2>errors.txt || true
check "both streams reach the encoder whole" \
    grep -qsx "$((120 * 512 * 384 * 4)) $((2 * 48000 * 4))" "$folder/show/encoder.txt"
LUMENFOLD_ENCODER_FAILS=1 film --scene twinTunnel --seconds 2 failed.mp4 >/dev/null 2>errors.txt || true
check "its last words are reported: $(tr -d '\r' <errors.txt | tail -n 1)" grep -q 'no such codec' errors.txt
check "and no film is left" test ! -e failed.mp4
rm "$folder/ffmpeg.exe"

# The window.
start() {
    $wine "$folder/lumenfold.exe" >/dev/null 2>&1 &
    program=$!
}
window() { xdotool search --onlyvisible --name '^lumenfold' 2>/dev/null | tail -n 1; }
await() { # SECONDS COMMAND...
    local end=$((SECONDS + $1))
    shift
    while [ $SECONDS -lt $end ]; do
        "$@" && return
        sleep 0.2
    done
    return 1
}
shown() { [ -n "$(window)" ]; }
ended() { ! kill -0 "$program" 2>/dev/null; }
picture() { import -window "$(window)" "$1"; }
differ() { ! cmp -s "$1" "$2"; }
colours() { convert "$1" -format %k info:; }

start
check "a window opens" await 60 shown
sleep 8
picture one.ppm
sleep 2
picture two.ppm
check "it shows pictures of $(colours two.ppm) colours" test "$(colours two.ppm)" -gt 100
check "they move" differ one.ppm two.ppm
[ -z "${LUMENFOLD_SCREENSHOT:-}" ] || convert two.ppm "$LUMENFOLD_SCREENSHOT"
xdotool key --window "$(window)" shift
sleep 1
check "a modifier does not end it" shown
xdotool windowfocus --sync "$(window)" key space
check "a key does" await 15 ended
status=0
wait "$program" || status=$?
check "with status 0" test $status = 0
start
await 60 shown || true
sleep 5
xdotool windowfocus --sync "$(window)" key alt+F4
check "closing the window ends it" await 15 ended

mv "$folder/show/bzzzz.xm" "$work/"
start
check "a missing tune is reported in a box" await 60 shown
[ -z "${LUMENFOLD_SCREENSHOT:-}" ] || import -window root "${LUMENFOLD_SCREENSHOT%.*}-box.png"
xdotool windowfocus --sync "$(window)" key Return
check "which a key closes" await 15 ended
program=
[ $failures = 0 ] || { echo "$failures failed"; exit 1; }
