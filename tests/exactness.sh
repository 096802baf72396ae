#!/usr/bin/env bash
# Are the pictures the same from every compiler, at every optimisation, with and without vector instructions, and with a
# C library that does without FMA? Runs the golden frames and prints a table.
#   tests/exactness.sh                       gcc and clang, -O0, -O2, -O3 (about a quarter of an hour; logs: build/exactness)
#   tests/exactness.sh --short test_golden   one program that is built already, the scenes alone (a few seconds)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
builds=$root/build/exactness
no_fma=glibc.cpu.hwcaps=-AVX2,-FMA,-FMA4,-AVX2_Usable,-FMA_Usable,-FMA4_Usable # older and newer names
status=0
mkdir -p "$builds"

# If the names above have no effect here, the last column says nothing: the C library's own sine must change.
check_no_fma() {
    "${CXX:-c++}" -O1 -x c++ - -o "$builds/sine" <<'END'
#include <cmath>
#include <cstdio>
int main() {
    for (volatile double x = 0.0; x < 100000.0; x = x + 0.37)
        std::printf("%a\n", std::sin(x));
}
END
    ! cmp -s <("$builds/sine") <(GLIBC_TUNABLES=$no_fma "$builds/sine") ||
        echo "The C library here takes the same path with and without FMA: the last column proves nothing new."
}

# compare LABEL PROGRAM [OPTION...]: one row of the table, its three runs side by side.
compare() {
    local label=$1 program=$2 mode row begin=$SECONDS
    local -A runs
    local log=$builds/${label// /}
    shift 2
    "$program" "$@" >"$log-vector.log" 2>&1 & runs[vector]=$!
    "$program" "$@" --plain >"$log-plain.log" 2>&1 & runs[plain]=$!
    GLIBC_TUNABLES=$no_fma "$program" "$@" >"$log-nofma.log" 2>&1 & runs[nofma]=$!
    row=$(printf '%-16s' "$label")
    for mode in vector plain nofma; do
        if wait "${runs[$mode]}"; then
            row+=$(printf '%-11s' equal)
        else
            row+=$(printf '%-11s' DIFFERENT)
            status=1
        fi
    done
    echo "$row$((SECONDS - begin)) s"
}

echo "build           vector     plain      no FMA"
if [ "${1:-}" = --short ]; then
    compare "this one" "$2" '--gtest_filter=*ScenesAlone'
else
    check_no_fma
    for compiler in g++ clang++; do
        for level in -O0 -O2 -O3; do
            build=$builds/$compiler$level
            cmake -S "$root" -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=$compiler -DCMAKE_BUILD_TYPE=Release \
                -DCMAKE_CXX_FLAGS_RELEASE=$level -DLUMENFOLD_BENCH=OFF -DLUMENFOLD_FORGE=OFF \
                ${launcher:=$(command -v ccache >/dev/null && echo -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)} >/dev/null
            cmake --build "$build" --target test_golden >"$build/build.log" || { tail -20 "$build/build.log"; exit 1; }
            compare "$compiler $level" "$build/tests/test_golden"
        done
    done
fi
exit $status
