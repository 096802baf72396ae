#!/usr/bin/env bash
# Builds the program that this script is called as (lumenfold-film, lumenfold-forge or lumenfold-bench at the root are
# links to it), if it is not up to date, and runs it with the arguments given.
set -euo pipefail
called_in=$PWD
root=$(cd "$(dirname "$(readlink -f "$0")")/.." && pwd)
. "$root/setup/build.sh"

case ${program:=$(basename "$0")} in
lumenfold-film) folder=programs && build run film -- -- lumenfold-film ;;
lumenfold-forge) folder=forge && build run forge -- LUMENFOLD_FORGE -- lumenfold-forge ;;
lumenfold-bench) folder=bench && build run bench -- LUMENFOLD_BENCH -- lumenfold-bench ;;
*) echo "$program: no such program" >&2 && exit 2 ;;
esac
cd "$called_in"
exec "$root/build/release/$folder/$program" "$@"
