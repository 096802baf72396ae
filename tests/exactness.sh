#!/usr/bin/env bash
# Are the pictures the same from every compiler, at every optimisation, with all vector instructions that the processor
# has, and with a C library that does without FMA? Runs the golden frames and prints a table.
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

# run LABEL PROGRAM [OPTION...]: notes in the row whether the frames are equal.
run() {
    if "${@:2}" >"$log-$1.log" 2>&1; then
        row+=$(printf '%-11s' equal)
    else
        row+=$(printf '%-11s' DIFFERENT)
        status=1
    fi
}

# compare LABEL PROGRAM [OPTION...]: one row of the table.
compare() {
    local label=$1 target begin=$SECONDS
    log=$builds/${label// /}
    row=$(printf '%-16s' "$label")
    shift
    for target in $targets; do
        run "$target" "$@" --target "$target"
    done
    run nofma env GLIBC_TUNABLES=$no_fma "$@"
    echo "$row$((SECONDS - begin)) s"
}

# The names of the vector instructions to try, and the table's head.
head_of() {
    targets=$("$1" --list-targets)
    printf '%-16s' build
    printf '%-11s' $targets "no FMA"
    echo
}

if [ "${1:-}" = --short ]; then
    head_of "$2"
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
            [ "${targets:-}" ] || head_of "$build/tests/test_golden"
            compare "$compiler $level" "$build/tests/test_golden"
        done
    done
fi
exit $status
