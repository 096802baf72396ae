#!/usr/bin/env bash
# Tries what can go wrong and prints what happened, one row each: docs/RELIABILITY.md has the table.
#   tests/faults.sh [BUILD]      BUILD: a build folder, build/release unless given. A few minutes.
# The damaged shows are copies in a temporary folder.
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
programs=$(cd "${1:-$root/build/release}" && pwd)/programs
work=$(mktemp -d)
show=$work/show
trap 'umount "$work/small" 2>/dev/null; rm -rf "$work"' EXIT
cp -r "$root/show" "$show"
export SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy LUMENFOLD_MESSAGE_BOX=0
bad=0

# The last line of what a program said, without the temporary folder's name.
said() { tail -n 1 "$1" | sed "s|$work|...|g" | cut -c 1-110; }

# row FAULT STATUS FILE: a hang (124) or a death by a signal is what must never be.
row() {
    local mark=
    [ "$2" -lt 124 ] || [ "$2" -eq 130 ] || { mark="  <-- BAD"; bad=1; }
    printf '%-44s status %-3s %s%s\n' "$1" "$2" "$(said "$3")" "$mark"
}

# try FAULT COMMAND...
try() {
    local fault=$1
    shift
    timeout 300 "$@" >"$work/out" 2>"$work/err"
    local status=$?
    tried=$status
    [ -s "$work/err" ] || cp "$work/out" "$work/err"
    row "$fault" $status "$work/err"
}

film() { "$programs/lumenfold-film" --show "$show" "$@"; }
export -f film
export programs show

damage() { # FAULT FILE
    case $1 in
    missing) rm "$2" ;;
    directory) rm "$2" && mkdir "$2" ;;
    empty) : >"$2" ;;
    half) truncate -s $(($(stat -c %s "$2") / 2)) "$2" ;;
    random) head -c "$(stat -c %s "$2")" /dev/urandom >"$2" ;;
    other-kind) cp "$root/show/$(case $2 in *.jpg | *.tga) echo bfs0.pcx ;; *) echo petrolflare.jpg ;; esac)" "$2" ;;
    unreadable) chmod 000 "$2" ;;
    same-kind) cp "$(ls "$root"/show/*."${2##*.}" | grep -v "/${2##*/}\$" | head -1)" "$2" 2>/dev/null ;;
    esac
}

# Runs a command as a user whom a file's permissions stop: root becomes nobody.
mortal() {
    if [ "$(id -u)" != 0 ]; then
        "$@"
    else
        setpriv --reuid=65534 --regid=65534 --clear-groups "$@"
    fi
}
chmod 755 "$work"
permissions=yes
mortal test -x "$programs/lumenfold-film" -a -r "$show/bzzzz.xm" 2>/dev/null || permissions=

# Every asset with one fault: how many films ended with which status, and how many were wordless.
assets() {
    local fault=$1 file status length user=
    [ "$fault" != unreadable ] || user=mortal
    for file in "$root"/show/*; do
        local name=${file##*/}
        length=0.5 # all is read by then
        [ "$name" != endtune.xm ] || length=345
        damage "$fault" "$show/$name"
        $user timeout 120 "$programs/lumenfold-film" --show "$show" --to $length --timeline >"$work/out" 2>"$work/err"
        status=$?
        echo "$fault $name status $status: $(said "$work/err")" >>"$work/assets"
        [ $status -lt 124 ] || { bad=1; tail -1 "$work/assets"; }
        rm -r "$show/$name" 2>/dev/null
        cp "$file" "$show/$name"
    done
    printf 'every asset %-32s ' "$fault"
    grep "^$fault " "$work/assets" | sed 's/.*status \([0-9]*\):.*/\1/' | sort | uniq -c | awk '{printf "status %s: %s files  ", $2, $1}'
    echo
}

for fault in missing directory ${permissions:+unreadable} empty half random other-kind same-kind; do
    assets $fault
done
[ -n "$permissions" ] || echo "every asset unreadable: not tried, there is no user whom the permissions stop"
echo "for example"
grep -hE "^(missing|directory|unreadable|half|random) (hall1.jpg|credt.lwo|bzzzz.xm|endtune.xm|greets2.pcx)" "$work/assets" | sed 's/^/  /'

cd "$work"
# variety FAULT FILE COMMAND...: the show with one file that the command writes to standard output.
variety() {
    local fault=$1 name=$2
    shift 2
    "$@" >"$show/$name" || { bad=1; echo "$fault: not made"; }
    try "$fault" bash -c 'film --to 0.5 --timeline'
    grep -q "$name: " "$work/err" || { bad=1; echo "$(printf '%44s' '') nothing is said of $name  <-- BAD"; }
    cp "$root/show/$name" "$show/$name"
}
tga=$root/show/sidogrej91x351.tga
pcx=$root/show/greets2.pcx
variety "TGA, run-length coded" sidogrej91x351.tga convert "$tga" -compress RLE tga:-
variety "TGA, grey" sidogrej91x351.tga convert "$tga" -colorspace gray -compress none tga:-
variety "TGA, 32-bit" sidogrej91x351.tga convert "$tga" -alpha on -compress none tga:-
variety "TGA of another size" sidogrej91x351.tga convert "$tga" -resize 90x90! -compress none tga:-
variety "PCX with a palette" greets2.pcx convert "$pcx" -colors 200 -type Palette pcx:-
variety "PCX of another size" greets2.pcx convert "$pcx" -resize 300x100! pcx:-
variety "PNG called .pcx" greets2.pcx convert "$pcx" png:-
variety "text called .jpg" hall1.jpg echo "not a picture"
variety "JPEG, progressive" hall1.jpg convert "$root/show/hall1.jpg" -interlace JPEG jpg:-
variety "JPEG, CMYK" hall1.jpg convert "$root/show/hall1.jpg" -colorspace CMYK jpg:-
variety "object of a later type" credt.lwo printf 'FORM\0\0\0\4LWO2'
variety "object without faces" credt.lwo printf 'FORM\0\0\0\4LWOB'
try "object that is missing" bash -c 'film --object nothing.lwo frames/'
try "texture with a blank in its name" bash -c 'film --object "credt.lwo,no such texture.jpg" frames/'

mkdir empty gone
cd empty
try "demo: folder without assets" "$programs/lumenfold"
cd ../gone
rmdir ../gone
try "demo: deleted working directory" "$programs/lumenfold"
cd "$show"
try "demo: no display" env -u DISPLAY -u WAYLAND_DISPLAY -u SDL_VIDEODRIVER "$programs/lumenfold"
try "demo: no such video driver" env SDL_VIDEODRIVER=none-such "$programs/lumenfold"
try "demo: no such sound driver" env SDL_AUDIODRIVER=none-such "$programs/lumenfold"

# signals FAULT COMMANDS: what happens to the running demo; "demo" is its number.
signals() {
    # a program behind a script ignores SIGINT, and under nohup SIGHUP, unless these are set back
    env --default-signal=INT,HUP "$programs/lumenfold" >"$work/out" 2>"$work/err" &
    local demo=$! status
    eval "$2"
    timeout 20 tail --pid=$demo -f /dev/null || kill -KILL $demo
    wait $demo
    status=$?
    row "$1" $status "$work/err"
}
signals "demo: SIGTERM while loading" 'sleep 0.2; kill -TERM $demo'
signals "demo: SIGTERM while playing" 'sleep 4; kill -TERM $demo'
signals "demo: SIGINT while playing" 'sleep 4; kill -INT $demo'
signals "demo: SIGHUP while playing" 'sleep 4; kill -HUP $demo'
signals "demo: SIGPIPE, then SIGTERM" 'sleep 4; kill -PIPE $demo; sleep 1; kill -0 $demo && kill -TERM $demo'
signals "demo: a frame of two seconds, then SIGTERM" 'sleep 3; kill -STOP $demo; sleep 2; kill -CONT $demo; sleep 1; kill -TERM $demo'

# output FAULT WHERE: the demo with that standard output, then SIGTERM.
output() {
    (eval "exec env --default-signal=HUP \"$programs/lumenfold\" $2" 2>"$work/err") &
    local demo=$! status
    sleep 4
    kill -TERM $demo
    timeout 20 tail --pid=$demo -f /dev/null || kill -KILL $demo
    wait $demo
    status=$?
    row "$1" $status "$work/err"
}
output "demo: standard output closed" '>&-'
output "demo: all standard descriptors closed" '<&- >&- 2>&-'
output "demo: standard output full" '>/dev/full'
mkfifo "$work/fifo"
sleep 30 <>"$work/fifo" &
output "demo: a pipe that nobody reads" '>"$work/fifo"'

# Starts a sound server of its own for the demo to lose; "server" is its number.
serve() {
    rm -f "$work/socket"
    HOME=$work XDG_RUNTIME_DIR=$work pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 \
        -L "module-null-sink sink_name=one" \
        -L "module-native-protocol-unix socket=$work/socket auth-anonymous=1" 2>/dev/null &
    server=$!
    disown $server # the shell says nothing when it dies
    for _ in $(seq 100); do [ -S "$work/socket" ] && break || sleep 0.1; done
    sleep 0.5
}

# Waits until the demo plays on the server.
sounds() {
    for _ in $(seq 100); do
        pactl list short sink-inputs | grep -q . && tail -n 1 "$work/err" | grep -q again && return
        sleep 0.1
    done
    echo "the sound does not return  <-- BAD"
    bad=1
}

# sound FAULT BEFORE COMMANDS: on a server of its own, where BEFORE runs before the demo starts; COMMANDS while it
# plays, then a key.
sound() {
    serve
    eval "$2"
    "$programs/lumenfold" >"$work/out" 2>"$work/err" &
    local demo=$! pressed took status
    sleep 5
    eval "$3"
    pressed=$(date +%s%N)
    kill -TERM $demo
    timeout 40 tail --pid=$demo -s 0.02 -f /dev/null || kill -KILL $demo
    took=$((($(date +%s%N) - pressed) / 1000000))
    wait $demo
    status=$?
    kill -KILL $server 2>/dev/null
    row "sound: $1, key: $took ms" $status "$work/err"
    [ $took -lt 1000 ] || { bad=1; echo "the key took $took ms  <-- BAD"; }
}
if command -v pulseaudio >/dev/null && command -v pactl >/dev/null; then
    export PULSE_SERVER=unix:$work/socket SDL_AUDIODRIVER=pulseaudio
    sound "server dies" : 'kill -KILL $server; sleep 2'
    sound "server restarted" : 'kill -KILL $server; sleep 0.5; serve; sounds'
    sound "server dead at the start" 'kill -KILL $server' 'serve; sounds'
    sound "server hangs" : 'kill -STOP $server; sleep 2'
    sound "server hung for a while" : 'kill -STOP $server; sleep 2; kill -CONT $server; sounds'
    sound "server hangs at the start" 'kill -STOP $server' :
    sound "last sink gone" : 'pactl unload-module module-null-sink; sleep 5'
    sound "last sink gone and back" : 'pactl unload-module module-null-sink; sleep 1; pactl load-module module-null-sink >/dev/null; sounds'
    sound "no sink at the start" 'pactl unload-module module-null-sink' 'pactl load-module module-null-sink >/dev/null; sounds'
    sound "another sink for the last" 'pactl load-module module-always-sink >/dev/null' 'pactl unload-module module-null-sink; sleep 2'
    sound "default sink changed" : 'pactl load-module module-null-sink sink_name=two >/dev/null; pactl set-default-sink two; sleep 2'
    sound "sink suspended" : 'pactl suspend-sink one 1; sleep 2'
    sound "sink suspended for a while" : 'pactl suspend-sink one 1; sleep 2; pactl suspend-sink one 0; sounds'
    export SDL_AUDIODRIVER=dummy
    unset PULSE_SERVER
    if [ -x "$programs/../tests/test_window" ]; then
        LUMENFOLD_SOUND_MATRIX=8 try "sound: every fault at every moment" \
            "$programs/../tests/test_window" --gtest_filter=SoundServers.MayFailInEveryWay
        grep -q 'PASSED  . 1 test' "$work/out" || { bad=1; cat "$work/out"; }
    fi
else
    echo "sound: lost devices: not tried, pulseaudio is not installed"
fi

cd "$work"
mkdir -p small bin nowhere
printf '#!/bin/sh\nhead -c 3000000 >/dev/null\nkill -KILL $$\n' >bin/ffmpeg
chmod +x bin/ffmpeg

# unharmed FAULT STATUS COMMAND...: fails with that status, and leaves an earlier film, sound and picture folder alone.
unharmed() {
    local fault=$1 expected=$2 status
    shift 2
    rm -rf earlier && mkdir -p earlier/frames
    for name in film.mp4 film.mkv sound.wav sheet.png frames/frame000000.png; do echo earlier >"earlier/$name"; done
    local before=$(find earlier -type f | sort | xargs md5sum)
    timeout 120 "$@" >"$work/out" 2>"$work/err"
    status=$?
    row "$fault" $status "$work/err"
    [ $status = "$expected" ] || { bad=1; echo "$(printf '%44s' '') status $expected was expected  <-- BAD"; }
    [ "$before" = "$(find earlier -type f | sort | xargs md5sum)" ] || { bad=1; echo "$(printf '%44s' '') an earlier file was harmed  <-- BAD"; }
}
unharmed "film: ffmpeg missing" 1 env PATH=/nowhere "$programs/lumenfold-film" --show "$show" --to 1 earlier/film.mp4
unharmed "film: ffmpeg killed" 1 env PATH="$work/bin:$PATH" "$programs/lumenfold-film" --show "$show" --to 5 earlier/film.mp4
unharmed "film: an object that is missing" 1 bash -c 'film --object typo.lwo earlier/film.mp4'
unharmed "film: a show that is missing" 1 "$programs/lumenfold-film" --show nowhere earlier/film.mp4
unharmed "film: a part that does not come" 2 bash -c 'film --part 10 --to 0.3 earlier/film.mp4'
unharmed "film: --from beyond the end" 2 bash -c 'film --from 900 earlier/film.mp4'
unharmed "film: --from beyond the part's end" 2 bash -c 'film --part 1 --from 300 earlier/frames'
unharmed "film: a range without a frame" 1 bash -c 'film --from 0.001 --to 0.002 earlier/sound.wav'
unharmed "film: --seconds 0" 2 bash -c 'film --scene twinTunnel --seconds 0 earlier/film.mp4'
unharmed "film: the tune of the scroller is missing" 1 bash -c 'rm $show/endtune.xm; film --from 300 --sheet earlier/sheet.png'
cp "$root/show/endtune.xm" "$show/endtune.xm"
unharmed "film: an option that does not exist" 2 bash -c 'film -x earlier/film.mp4'
unharmed "film: two outputs" 2 bash -c 'film earlier/film.mp4 earlier/sound.wav'
unharmed "film: --mode -1" 2 bash -c 'film --object credt.lwo --mode -1 earlier/film.mp4'
unharmed "film: --mode 9z" 2 bash -c 'film --object credt.lwo --mode 9z earlier/film.mp4'
unharmed "film: --mode of 2^40" 2 bash -c 'film --object credt.lwo --mode 1099511627776 earlier/film.mp4'
unharmed "film: too many textures" 2 bash -c 'film --object credt.lwo,a.jpg,b.jpg,c.jpg earlier/film.mp4'
unharmed "film: --sheet sheet.jpg" 2 bash -c 'film --sheet earlier/sheet.jpg'
unharmed "film: an archive that is an .mp4" 2 bash -c 'film --preset archive earlier/film.mp4'
unharmed "film: -h" 0 bash -c 'film -h'
unharmed "film: reader of the hashes goes away" 1 bash -c 'film --to 5 --hash earlier/film.mp4 | head -1; exit ${PIPESTATUS[0]}'
try "film: frames of an earlier run" bash -c 'film --to 0.2 again/ && film --from 0.1 --to 0.3 again/'
try "film: standard descriptors closed" bash -c 'film --to 0.3 closed.mp4 <&- >&- 2>&-'
# refused FAULT COMMAND...: says so and fails.
refused() {
    try "$@"
    [ -s "$work/err" ] && [ $tried = 1 ] || { bad=1; echo "$(printf '%44s' '') status 1 and a message were expected  <-- BAD"; }
    ! grep -q '\.part' "$work/err" || { bad=1; echo "$(printf '%44s' '') names a file that nobody asked for  <-- BAD"; }
}
refused "film: hashes to a full disk" bash -c 'film --to 1 --hash >/dev/full'
refused "film: timeline to a full disk" bash -c 'film --to 1 --timeline >/dev/full'
refused "film: --help to a full disk" bash -c 'film --help >/dev/full'
if mount -t tmpfs -o size=1m none small 2>/dev/null; then
    refused "film: pictures to a full disk" bash -c 'film --to 5 small/pictures'
    refused "film: sound to a full disk" bash -c 'film --to 20 small/sound.wav'
    try "film: film to a full disk" bash -c 'film --to 20 small/film.mp4'
    head -c 800000 /dev/zero >small/filler
    refused "film: sheet to a full disk" bash -c 'film --to 5 --sheet small/sheet.png'
else
    echo "film: full disk: not tried, mounting a small one needs root"
fi
try "film: folder that cannot be made" bash -c 'film --to 1 /proc/nowhere/film'
for signal in TERM INT HUP; do
    echo earlier >film.mp4
    env --default-signal=INT,HUP "$programs/lumenfold-film" --show "$show" film.mp4 >/dev/null 2>"$work/err" & running=$!
    sleep 3
    kill -$signal $running
    timeout 60 tail --pid=$running -f /dev/null || kill -KILL $running
    wait $running
    row "film: SIG$signal" $? "$work/err"
    seconds=$(ffprobe -v error -show_entries format=duration -of csv=p=0 film.mp4)
    echo "                                             the film so far: $seconds s"
    [ -n "$seconds" ] || bad=1
done
ls -A "$work"/*.part* "$work"/*/*.part* 2>/dev/null && { echo "left behind  <-- BAD"; bad=1; }
for fps in 30 60 144 240; do
    film --fps $fps --to 3 --timeline >out 2>err
    row "monitor at $fps Hz: $(film --fps $fps --to 3 --hash | wc -l) pictures in 3 s" $? err
done
exit $bad
