#!/usr/bin/env bash
# Builds demo, film tool and their Debian package in two folders of different names and compares the bytes (a few
# minutes). The asset maker and the benchmarks are left out: they name the source tree that they were built from.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/setup/packages.sh"
install_packages run film
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export SOURCE_DATE_EPOCH
SOURCE_DATE_EPOCH=$(git -C "$root" log -1 --format=%ct)
for folder in one another/place; do
    git clone -q "$root" "$scratch/$folder"
    cd "$scratch/$folder"
    cmake --preset release -DLUMENFOLD_TESTS=OFF -DLUMENFOLD_BENCH=OFF -DLUMENFOLD_FORGE=OFF >/dev/null
    cmake --build --preset release >/dev/null
    (cd build/release && cpack -G DEB >/dev/null 2>&1)
done
status=0
cd "$scratch/one/build/release"
for file in programs/lumenfold programs/lumenfold-film *.deb; do
    if cmp "$file" "$scratch/another/place/build/release/$file"; then
        echo "$file: the same bytes"
    else
        status=1
    fi
done
exit $status
