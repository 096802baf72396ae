#!/usr/bin/env bash
# The bash completion: offers what the programs know, and names no option that they do not have.
#   completion.sh PROGRAM...     lumenfold-film and whichever of the others were built
set -uo pipefail
script=$(cd "$(dirname "$0")/../.." && pwd)/packaging/bash-completion/lumenfold
. "$script"
bad=0
help=$(for program in "$@"; do "$program" --help; done)

# expect PROGRAM "OFFERED..." WORD...: what is offered for the last word.
expect() {
    local program=$1 expected=$2
    shift 2
    COMP_WORDS=("$program" "$@")
    COMP_CWORD=$#
    _lumenfold "$program"
    expected=$(printf '%s\n' $expected | sort | xargs)
    COMPREPLY=($(printf '%s\n' "${COMPREPLY[@]}" | sort))
    [ "${COMPREPLY[*]}" = "$expected" ] || { echo "$program $*: offers ${COMPREPLY[*]}, not $expected"; bad=1; }
}

for program in "$@"; do
    case ${program##*/} in
    lumenfold-film)
        expect "$program" "--preset" --pr
        expect "$program" "--show --sheet --scale --scene --sync --start --seconds" --s
        expect "$program" "fast" --preset f
        expect "$program" "archive" --preset = a
        expect "$program" "waveWarp weldingFilm" --scene w
        expect "$program" "10 11 1" --part 1
        for option in $(grep -oE -- '--[a-z-]+\b' "$script" | grep -vE -- '--(help|list|out)$' | sort -u); do
            grep -qE -- "^ +(-h,)?$option\b" <<<"$help" || { echo "there is no $option"; bad=1; }
        done
        ;;
    lumenfold-bench) expect "$program" "scenes" s ;;
    lumenfold-forge)
        expect "$program" "--out" --o
        expect "$program" "bzzzz.xm" bz
        ;;
    esac
done
exit $bad
