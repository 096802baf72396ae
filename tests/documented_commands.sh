#!/usr/bin/env bash
# Runs every command of README.md and docs/SHOW.md literally in a clean clone, once after ./run and once after ./test,
# and looks that git sees nothing of what they write. An hour or so; logs: build/commands.
#   tests/documented_commands.sh [--first run|test]
set -uo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
logs=$root/build/commands
mkdir -p "$logs"
orders=(run test)
[ "${1:-}" != --first ] || orders=("$2")
status=0

# The indented lines of a document, without those that another section runs or that serve until they are stopped.
commands_of() {
    sed -n 's/^    \(\(SDL_\|LUMENFOLD_\)[A-Z_]*=[^ ]* \)\?\(\.\/\|build\/\|tests\/\|openmpt123 \)/\1\3/p' "$1" |
        sed 's/ *#.*//; s/^openmpt123 /openmpt123 --info /' | grep -v '^\./\(run\|test\|web serve\)$'
}

for first in "${orders[@]}"; do
    clone=$(mktemp -d)/lumenfold
    git clone -q "$root" "$clone"
    cd "$clone" || exit 1
    log=$logs/$first.log
    : >"$log"
    # Without a display ./run films the show: half of a minute is enough to see that it does.
    if [ "$first" = run ]; then
        env -u DISPLAY -u WAYLAND_DISPLAY timeout --signal=INT 240 ./run >>"$log" 2>&1
    else
        ./test >>"$log" 2>&1 || { echo "./test failed: $log"; status=1; }
    fi
    while IFS= read -r command; do
        if bash -c "$command" </dev/null >>"$log" 2>&1; then
            echo "after ./$first: $command"
        else
            echo "after ./$first: FAILED: $command"
            status=1
        fi
    done < <(commands_of README.md; commands_of docs/SHOW.md)
    changed=$(git status --porcelain)
    [ -z "$changed" ] || { echo "after ./$first git sees: $changed"; status=1; }
    cd "$root" && rm -rf "$(dirname "$clone")"
done
exit $status
